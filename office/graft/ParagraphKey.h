#pragma once

#include "office/graft/CanonicalXml.h"
#include "office/opc/WordNames.h"

#include <pugixml.hpp>
#include <string>

namespace mergeloom::graft {

/// Returns a text that is equal for paragraphs of two exports that are alike, however their text is split
/// into runs. Bookmarks, texts of text boxes and results of fields that the office computes do not count.
std::string paragraphKey(pugi::xml_node paragraph, const opc::WordNames& names,
                         const CanonicalXml& canonical);

/// Returns the same for the end of a row: its properties, those of its cells and those of its table.
std::string rowKey(pugi::xml_node row, const opc::WordNames& names, const CanonicalXml& canonical);

/// Returns the containers around a node below a root, such as content controls and links.
std::string containersOf(pugi::xml_node node, pugi::xml_node root, const opc::WordNames& names,
                         const CanonicalXml& canonical);

}  // namespace mergeloom::graft
