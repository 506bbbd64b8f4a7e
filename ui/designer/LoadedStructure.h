#pragma once

#include "xml/StructureDocument.h"
#include "xml/TreeView.h"
#include "xml/XmlNodeCollection.h"

#include <string>

namespace mergeloom {

/// A structure document as the designer works with it. Once it is loaded nobody changes it, so any thread may
/// read it.
struct LoadedStructure {
    StructureDocument document;
    TreeView tree;
    /// The elements of the tree's keys, for the droppers.
    XmlNodeCollection xmlNodes;
    /// The folders that the document's options name; empty for what they do not name.
    std::string documentsFolder;
    std::string templatesFolder;
};

}  // namespace mergeloom
