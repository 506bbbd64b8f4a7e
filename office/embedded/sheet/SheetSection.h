#pragma once

#include "office/embedded/sheet/SheetPart.h"

#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// A small section of a sheet, such as "sheetViews", as a tree. What is not edited is written as it was read.
class SheetSection {
  public:
    SheetSection(const SheetPart& sheet, std::string_view localName);

    /// None where the sheet does not have the section.
    [[nodiscard]] pugi::xml_node root() const { return tree_.document_element(); }
    [[nodiscard]] std::string toXml() const;

  private:
    pugi::xml_document tree_;
};

}  // namespace mergeloom::embedded
