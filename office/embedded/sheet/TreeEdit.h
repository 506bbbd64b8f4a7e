#pragma once

#include "office/embedded/sheet/PartState.h"
#include "office/opc/XmlPart.h"

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

/// Elements of SpreadsheetML in a tree and changes of them that can be taken back. A part writes all its
/// elements with the prefix of its root, or with none.
namespace mergeloom::embedded {

/// A local name with the prefix of an element: "x:sheet" beside "x:sheets".
std::string nameLike(pugi::xml_node element, std::string_view localName);
/// The first child of that local name in the parent's namespace.
pugi::xml_node childNamed(pugi::xml_node parent, std::string_view localName);
/// All children of that local name in the parent's namespace.
std::vector<pugi::xml_node> childrenNamed(pugi::xml_node parent, std::string_view localName);
/// The first sibling behind a node that is an element.
pugi::xml_node nextElement(pugi::xml_node node);
/// The text of an element, its CDATA sections included.
std::string textOf(pugi::xml_node element);
/// The value of its attribute of the namespace of relationships, usually "r:id"; empty when there is none.
std::string relationshipId(pugi::xml_node element);

void setAttribute(pugi::xml_node element, const char* name, const std::string& value, PartState& state);
/// Replaces the text of an element.
void setText(pugi::xml_node element, const std::string& text, PartState& state);
/// Says that a node was just put into the part.
void noteNew(pugi::xml_node node, const opc::XmlPart& part, PartState& state);

}  // namespace mergeloom::embedded
