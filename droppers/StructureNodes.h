#pragma once

#include "xml/TreeView.h"
#include "xml/XmlNode.h"
#include "xml/XmlNodeCollection.h"

#include <string>

/// What the droppers ask of the structure document's elements and of the tree over them.
namespace mergeloom {

/// The element that a tree node stands for; none for no node and for a node without an element.
XmlNode elementOf(const XmlNodeCollection& xmlNodes, const TreeNode* node);

bool isSubform(const XmlNode& element);
/// Whether the form inside a subform control is bound to records.
bool isBoundSubform(const XmlNode& subform);

/// The name of the subform in which a control stands, which is the prefix of its places; empty for a control
/// of its own.
std::string enclosingSubformName(const XmlNodeCollection& xmlNodes, const TreeNode& control);

/// What stands before the names of the places below a node: nothing for an object, the node's name for a
/// subform.
std::string placePrefix(const XmlNodeCollection& xmlNodes, const TreeNode& node, const std::string& name);

bool isInDetailSection(const TreeNode& control);
/// Whether a control is a column of its object: it stands in the detail section of an object that is shown as
/// a datasheet, or of a subform bound to records.
bool isTableField(const TreeNode& control);

}  // namespace mergeloom
