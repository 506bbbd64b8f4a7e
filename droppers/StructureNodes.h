#pragma once

#include "droppers/DropContext.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <string>
#include <vector>

/// Questions about the structure document's elements and the tree nodes that show them.
namespace mergeloom {

/// Returns the element of a tree node; null for a null node and for a node without an element.
XmlNode elementOf(const XmlNodeCollection& xmlNodes, const TreeNode* node);

bool isSubform(const XmlNode& element);
/// Returns true when the form inside a subform control is bound to records.
bool isBoundSubform(const XmlNode& subform);

/// Returns the name of the subform that holds a control, which is the prefix of its places; empty for a
/// control outside of subforms.
std::string enclosingSubformName(const XmlNodeCollection& xmlNodes, const TreeNode& control);

/// Returns the prefix of the names of the places below a node: empty for an object, the node's name for a
/// subform.
std::string placePrefix(const XmlNodeCollection& xmlNodes, const TreeNode& node, const std::string& name);

bool isInDetailSection(const TreeNode& control);
/// Returns true for a control that is a column of its object: it is in the detail section of an object that
/// is shown as a datasheet, or of a subform bound to records.
bool isTableField(const TreeNode& control);

/// Tree nodes of controls in the order in which they are dropped.
using ControlNodes = std::vector<const TreeNode*>;

/// Returns all controls below an object or a subform, in tree order.
ControlNodes allControls(const TreeNode& object);

/// Returns the controls below an object that the keys name, in the keys' order. Ignores keys of other
/// controls.
ControlNodes chosenControls(const TreeNode& object, const FieldKeys& keys);

/// Returns the controls below an object that can be columns of its table: those of its detail section except
/// subforms.
ControlNodes fieldsOf(const XmlNodeCollection& xmlNodes, const TreeNode& object);

}  // namespace mergeloom
