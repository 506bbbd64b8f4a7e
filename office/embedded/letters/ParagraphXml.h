#pragma once

#include "office/opc/WordNames.h"
#include "office/opc/XmlPart.h"

#include <pugixml.hpp>
#include <string>

namespace mergeloom::embedded {

/// Returns the XML of the properties of a paragraph that is added after a paragraph with the given
/// properties; empty if there are none. Omits what belongs to one paragraph only: the end of a section, a
/// page break before it and tracked changes.
std::string addedParagraphProperties(pugi::xml_node properties, const opc::WordNames& names);

/// Joins paragraphs with the same parent. The first one gets the content of all and ends the section that the
/// last one ended. The others are detached. Does nothing if the paragraphs have been joined already.
void joinParagraphs(opc::XmlPart& part, pugi::xml_node first, pugi::xml_node last);

}  // namespace mergeloom::embedded
