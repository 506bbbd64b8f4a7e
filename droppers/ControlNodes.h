#pragma once

#include "droppers/DropContext.h"
#include "xml/TreeView.h"

#include <vector>

namespace mergeloom {

/// Tree nodes of controls, in the order in which they are dropped.
using ControlNodes = std::vector<const TreeNode*>;

/// All controls below an object or a subform, in tree order.
ControlNodes allControls(const TreeNode& object);

/// The controls below an object that the keys name, in the keys' order. Keys of other controls are passed
/// over.
ControlNodes chosenControls(const TreeNode& object, const FieldKeys& keys);

/// The controls below an object that can be columns of its table: those of its detail section, but for
/// subforms.
ControlNodes fieldsOf(const XmlNodeCollection& xmlNodes, const TreeNode& object);

}  // namespace mergeloom
