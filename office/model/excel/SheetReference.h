#pragma once

#include "office/model/excel/CellAddress.h"

#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::excel {

/// One block of cells as a formula names it: Sheet1!$A$1:$B$2, 'Year ''26'!$A$1. Without a sheet the name is
/// empty.
struct SheetReference {
    std::string sheetName;
    CellArea area;
};

/// Returns a sheet's name as formulas write it, in apostrophes where they are required.
std::string writtenSheetName(const std::string& name);

/// Reads a formula (without "=") that is only one block of cells of this workbook. Returns none for any other
/// formula: several areas, a constant, #REF!, another workbook's cells ("[1]Sheet1!$A$1").
std::optional<SheetReference> parseReference(std::string_view formula);
/// Returns the reference with absolute addresses.
std::string referenceText(const SheetReference& reference);

}  // namespace mergeloom::excel
