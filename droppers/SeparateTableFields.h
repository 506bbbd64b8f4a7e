#pragma once

#include "droppers/DropContext.h"
#include "office/model/word/Document.h"
#include "xml/TreeView.h"

namespace mergeloom {

/// Removes the places of an object's fields that were dropped one by one outside of its table, since a field
/// is filled either record by record in the table or once. The user is asked before; answers whether the user
/// cancelled, and then nothing is removed.
bool DeleteSeparateTableFields(DropContext& context, const TreeNode& node, word::Document& document);

}  // namespace mergeloom
