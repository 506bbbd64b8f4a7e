#pragma once

#include "office/graft/CanonicalXml.h"
#include "office/opc/WordNames.h"

#include <pugixml.hpp>
#include <string>

namespace mergeloom::graft {

/// Returns a text that is equal for equal paragraphs of two exports, even if their text is split into
/// different runs. Bookmarks, texts of text boxes and results of fields that the office computes are ignored.
std::string paragraphKey(pugi::xml_node paragraph, const opc::WordNames& names,
                         const CanonicalXml& canonical);

/// Returns a text that is equal for equal ends of rows: the properties of the row, of its cells and of its
/// table.
std::string rowKey(pugi::xml_node row, const opc::WordNames& names, const CanonicalXml& canonical);

/// Returns the containers around a node below a root, such as content controls and links.
std::string containersOf(pugi::xml_node node, pugi::xml_node root, const opc::WordNames& names,
                         const CanonicalXml& canonical);

}  // namespace mergeloom::graft
