#pragma once

#include "office/embedded/sheet/SheetState.h"

namespace mergeloom::embedded {

/// The index of the format that a new cell takes: that of its row where the row has one of its own, else that
/// of its column (ECMA-376 Part 1, 18.3.1.13, 18.3.1.73).
int styleOfNewCell(const SheetState& sheet, const excel::CellPosition& cell);

}  // namespace mergeloom::embedded
