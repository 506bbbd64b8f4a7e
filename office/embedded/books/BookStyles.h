#pragma once

#include "office/embedded/books/CellValue.h"
#include "office/opc/XmlPart.h"

#include <map>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <utility>

namespace mergeloom::embedded {

/// The cell formats of a workbook (ECMA-376 Part 1, 18.8.10), and further ones for dates: a date in a cell
/// with the format General would be shown as a number, therefore it gets the format of a date, as it does
/// when it is typed.
class BookStyles {
  public:
    /// Takes the styles' part; null for a workbook without one, whose cells all are General.
    explicit BookStyles(std::unique_ptr<opc::XmlPart> part);

    [[nodiscard]] NumberFormat numberFormatOf(int style) const;
    /// Adds the formats that cells of a format get for dates.
    void addDates(int style);
    /// Returns the style of a cell that gets a value.
    [[nodiscard]] int styleOf(int style, CellValue::Kind kind) const;
    /// Returns the part with the added formats.
    [[nodiscard]] const std::string& xml() const { return xml_; }
    [[nodiscard]] const std::string& partName() const { return part_->partName(); }

  private:
    [[nodiscard]] pugi::xml_node format(int style) const;
    int add(int style, int numberFormat);

    std::unique_ptr<opc::XmlPart> part_;
    pugi::xml_node formats_;
    std::map<std::pair<int, CellValue::Kind>, int> dates_;
    std::string xml_;
};

}  // namespace mergeloom::embedded
