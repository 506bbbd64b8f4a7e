#pragma once

#include "describe/ObjectDesign.h"
#include "describe/XmlStream.h"

#include <span>

namespace mergeloom::describe {

/// Writes the element Structure with the objects.
void writeStructure(XmlStream& xml, std::span<const ObjectDesign> objects);

}  // namespace mergeloom::describe
