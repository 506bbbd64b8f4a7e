#pragma once

#include "base/Record.h"
#include "droppers/PlaceDirectory.h"
#include "xml/StructureDocument.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <optional>
#include <string>
#include <vector>

namespace mergeloom {

/// The folders that a structure document's options name; a folder that they do not name is empty.
struct StructureFolders {
    std::string documents;
    std::string templates;
};

/// A structure document in the designer. Once it is loaded it is not changed, so any thread may read it.
struct LoadedStructure {
    std::string path;
    StructureDocument document;
    TreeView tree;
    /// The Index of the node that is expanded at first, that of the key "1k"; 0 for none.
    int firstObject = 0;
    /// The elements of the tree's keys, for the droppers.
    XmlNodeCollection xmlNodes;
    NodesByPlace nodesByPlace;
    /// The draggable nodes of the top level.
    std::vector<const TreeNode*> objects;
    std::vector<Record> records;
    /// None when the document has no options: then the user's documents folder is used for both.
    std::optional<StructureFolders> folders;
};

}  // namespace mergeloom
