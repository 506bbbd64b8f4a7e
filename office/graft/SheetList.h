#pragma once

#include "office/graft/BookExport.h"
#include "office/opc/Package.h"

#include <string>
#include <vector>

namespace mergeloom::graft {

/// A sheet of an export and its counterpart in the former export.
struct SheetPair {
    const ExportedSheet* former = nullptr;  ///< null for an added sheet
    const ExportedSheet* now = nullptr;
};

/// Pairs the sheets of two exports by their names, and a renamed sheet with the remaining one at its
/// position. Raises Refusal if a sheet was removed or moved.
std::vector<SheetPair> pairSheets(const BookExport& former, const BookExport& now);

/// Adds a worksheet without cells to an original, after the sheet that the export has before it. It has the
/// page's settings of the exported one. Raises Refusal for a sheet with other content than cells.
void addSheet(opc::Package& original, const ExportedSheet& sheet, const std::string& before);

/// Renames a sheet of an original whose cells and names have been changed already. Raises Refusal if anything
/// else refers to its former name.
void renameSheet(opc::Package& original, const std::string& former, const std::string& now);

}  // namespace mergeloom::graft
