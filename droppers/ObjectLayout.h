#pragma once

#include "droppers/DropContext.h"
#include "xml/XmlNode.h"

#include <string>

namespace mergeloom {

/// How a table, query or form is laid out in the document.
enum class ObjectLayout { None, Table, Form };

/// The layout that the document type asks for, or else the object's own view. A continuous form asks the
/// user; a view that cannot be laid out is refused with a message and has no layout.
ObjectLayout layoutOf(DropContext& context, const XmlNode& object);

/// The name of the view in which an object is shown: "Form", "Datasheet". A number that stands for no view is
/// returned as it is; an object without a view has an empty one.
std::string viewNameOf(const XmlNode& object);

}  // namespace mergeloom
