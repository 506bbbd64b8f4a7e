#pragma once

#include "office/opc/WordNames.h"

#include <pugixml.hpp>

namespace mergeloom::embedded {

/// Returns the properties of the first section of a body, which must exist.
pugi::xml_node firstSectionOf(pugi::xml_node body, const opc::WordNames& names);

/// Makes a section start on a new page with the number 1, or on the right or left page if it does so already.
void startOnNewPage(pugi::xml_node section, const opc::WordNames& names);

}  // namespace mergeloom::embedded
