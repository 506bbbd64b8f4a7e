#pragma once

#include "office/opc/Package.h"

#include <pugixml.hpp>
#include <string>
#include <vector>

namespace mergeloom::embedded {

enum class SheetKind { Worksheet, ChartSheet, Other };

/// A sheet as the workbook lists it (ECMA-376 Part 1, 18.2.19).
struct SheetEntry {
    std::string name;
    std::string partName;
    int sheetId = 0;  ///< by which the calculation chain knows it
    SheetKind kind = SheetKind::Worksheet;
    bool hidden = false;
};

/// Reads the list out of the root of a workbook's part. Raises kFileCouldNotBeRead, with a sentence that
/// names the file, for a workbook without a visible sheet and for a sheet whose part is missing or another
/// sheet's.
std::vector<SheetEntry> readSheets(pugi::xml_node workbook, const std::string& partName,
                                   opc::Package& package);

}  // namespace mergeloom::embedded
