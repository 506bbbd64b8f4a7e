#pragma once

#include "droppers/DropContext.h"
#include "xml/XmlNode.h"

namespace mergeloom {

/// How a table, query or form is laid out in the document.
enum class ObjectLayout { None, Table, Form };

/// The layout that the document type asks for, or else the object's own view. A continuous form asks the
/// user; a view that cannot be laid out is refused with a message and has no layout.
ObjectLayout layoutOf(DropContext& context, const XmlNode& object);

}  // namespace mergeloom
