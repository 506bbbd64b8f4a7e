#pragma once

#include "office/opc/WordNames.h"

#include <pugixml.hpp>
#include <string_view>

namespace mergeloom::opc {

/// Returns the child with a local name of the properties of a run, a paragraph, a section or a numbering.
/// Inserts it in the order of the schema if there is none.
pugi::xml_node requireChild(pugi::xml_node properties, std::string_view name, const WordNames& names);

}  // namespace mergeloom::opc
