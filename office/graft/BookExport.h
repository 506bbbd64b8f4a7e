#pragma once

#include "office/graft/ExportedFormats.h"
#include "office/graft/ExportedSheet.h"
#include "office/graft/FormatNumbers.h"
#include "office/opc/Package.h"

#include <map>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::graft {

/// A defined name: its sheet, or an empty text for the workbook, and its text.
using NameKey = std::pair<std::string, std::string>;

/// A workbook that an office exported.
class BookExport {
  public:
    /// Exports to be compared share the numbers, which must outlive them. Raises kFileCouldNotBeRead.
    BookExport(const std::string& bytes, const std::string& fileName, FormatNumbers& numbers);

    [[nodiscard]] opc::Package& package() { return package_; }
    [[nodiscard]] const ExportedFormats& formats() const { return formats_; }
    [[nodiscard]] const std::vector<ExportedSheet>& sheets() const { return sheets_; }
    /// Returns the formulas of the defined names.
    [[nodiscard]] const std::map<NameKey, std::string>& names() const { return names_; }
    /// Returns the other content of the workbook by the names of elements or parts.
    [[nodiscard]] const std::map<std::string, std::string>& sections() const { return sections_; }
    /// Returns the number of the format of a cell.
    [[nodiscard]] int formatAt(const ExportedSheet& sheet, const excel::CellPosition& place) const {
        return formats_.at(sheet.styleAt(place)).number;
    }

  private:
    void readSheets(pugi::xml_node list);
    void readNames(pugi::xml_node list);
    void readSections(pugi::xml_node root, const std::string& partName);

    opc::Package package_;
    ExportedFormats formats_;
    ExportedTexts texts_;
    std::vector<ExportedSheet> sheets_;
    std::map<NameKey, std::string> names_;
    std::map<std::string, std::string> sections_;
};

}  // namespace mergeloom::graft
