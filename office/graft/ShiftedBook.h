#pragma once

#include "office/graft/LineShift.h"
#include "office/opc/Package.h"

#include <string>

namespace mergeloom::graft {

/// Inserts rows or columns into a sheet of a workbook, or removes them, with all that refers to its cells.
/// New cells have the formats of the row above or of the column on the left. Raises Refusal for content that
/// cannot be moved safely: pivot tables, data tables, divided array formulas, parts of tables, comments on
/// removed cells, and parts of unknown kinds; kFileCouldNotBeRead for damaged parts.
void shiftLines(opc::Package& package, const std::string& sheetName, const LineShift& shift);

}  // namespace mergeloom::graft
