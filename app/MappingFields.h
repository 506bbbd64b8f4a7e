#pragma once

#include "droppers/DropContext.h"
#include "xml/TreeView.h"
#include "xml/XmlNodeCollection.h"

#include <string>

namespace mergeloom {

/// Whether the value of the switch for fields lists any.
bool listsFields(const std::string& fieldList);
/// Whether a list holds anything but separators and blanks.
bool namesFields(const std::string& fieldList);

/// The tree keys of the fields that a list names, in the list's order. The names stand between commas, or
/// between semicolons where there is no comma, and are those of children of the object's node, letter case
/// aside. A name that no child has is passed over.
FieldKeys fieldKeys(const TreeNode& object, const XmlNodeCollection& xmlNodes, const std::string& fieldList);

}  // namespace mergeloom
