#pragma once

#include "office/model/excel/CellAddress.h"

#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// One block of cells as a formula names it: Sheet1!$A$1:$B$2, 'Year ''26'!$A$1. Without a sheet the name is
/// empty.
struct SheetReference {
    std::string sheetName;
    excel::CellArea area;
};

/// Reads a formula (without "=") that is nothing but one block of cells of this workbook; nothing for any
/// other formula: several areas, a constant, #REF!, another workbook's cells ("[1]Sheet1!$A$1").
std::optional<SheetReference> parseReference(std::string_view formula);
/// Writes it absolute, the sheet's name in quotes where formulas need them.
std::string referenceText(const SheetReference& reference);

}  // namespace mergeloom::embedded
