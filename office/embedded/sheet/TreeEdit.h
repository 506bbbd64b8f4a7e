#pragma once

#include "office/embedded/sheet/SheetPart.h"
#include "office/embedded/sheet/UndoLog.h"
#include "office/opc/XmlPart.h"

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

/// Reads and changes elements of SpreadsheetML in a tree; changes can be undone. All elements of a part have
/// the prefix of its root, or none.
namespace mergeloom::embedded {

/// Returns a local name with the prefix of an element: "x:sheet" for "x:sheets".
std::string qualifiedName(pugi::xml_node element, std::string_view localName);
/// Returns the first child of that local name in the parent's namespace.
pugi::xml_node childNamed(pugi::xml_node parent, std::string_view localName);
/// Returns all children of that local name in the parent's namespace.
std::vector<pugi::xml_node> childrenNamed(pugi::xml_node parent, std::string_view localName);
/// Returns the first sibling after a node that is an element.
pugi::xml_node nextElement(pugi::xml_node node);
/// Returns the text of an element, including its CDATA sections.
std::string textOf(pugi::xml_node element);
/// Returns the value of the attribute "id" in the namespace of relationships, usually "r:id"; empty if there
/// is none.
std::string relationshipId(pugi::xml_node element);

void setAttribute(pugi::xml_node element, const char* name, const std::string& value, PartState& state);
/// Replaces the text of an element.
void setText(pugi::xml_node element, const std::string& text, PartState& state);
/// Records that a node was just inserted into the part.
void recordInsertion(pugi::xml_node node, const opc::XmlPart& part, PartState& state);

/// A small section of a sheet, such as "sheetViews", as a tree. Everything that is not edited is written as
/// it was read.
class SheetSection {
  public:
    SheetSection(const SheetPart& sheet, std::string_view localName);

    /// Returns the section's element; an empty node if the sheet does not have the section.
    [[nodiscard]] pugi::xml_node root() const { return tree_.document_element(); }
    [[nodiscard]] std::string toXml() const;

  private:
    pugi::xml_document tree_;
};

}  // namespace mergeloom::embedded
