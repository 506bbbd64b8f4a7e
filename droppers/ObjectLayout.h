#pragma once

#include "droppers/DropContext.h"
#include "xml/TreeView.h"
#include "xml/XmlNode.h"

#include <string>

namespace mergeloom {

/// The layout of a table, query or form in the document.
enum class ObjectLayout { None, Table, Form };

/// Returns the layout that the document type requests, or otherwise the object's own view. For a continuous
/// form the user is asked; a view that cannot be laid out is refused with a message and has no layout.
ObjectLayout layoutOf(DropContext& context, const XmlNode& object);

/// Returns the layout of a subform: a table if its form is bound to records. Other controls have none.
ObjectLayout layoutOfSubform(const XmlNode& control);

/// Returns the name of the view in which an object is shown: "Form", "Datasheet". Returns an unknown number
/// unchanged, and an empty text for an object without a view.
std::string viewNameOf(const XmlNode& object);

/// Returns a sentence that names what was searched for in an object or a subform and not found, for a drop
/// that dropped nothing of it without informing the user of the reason. Empty when there is something to
/// drop, of which the user chose nothing.
std::string nothingToDrop(const DropContext& context, const TreeNode& node, ObjectLayout layout);

}  // namespace mergeloom
