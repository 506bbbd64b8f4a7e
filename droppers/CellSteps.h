#pragma once

#include "office/model/excel/Range.h"

#include <functional>

/// Steps from cell to cell.
namespace mergeloom {

/// The range that a question of the object model leads to; none when it leads out of the sheet or to no cells
/// at all.
excel::RangePtr rangeOrNone(const std::function<excel::RangePtr()>& question);

/// The cell right of a cell, behind the merged cells that it belongs to.
excel::RangePtr cellRightOf(excel::Range& cell);

/// The cell so many rows below. It stands below merged cells that begin further up, since those may hold what
/// stands above. Raises kApplicationDefined below the last row.
excel::RangePtr cellBelow(excel::Range& cell, int rows);

/// How many rows a cell takes with the cells that it is merged with.
int rowsOf(excel::Range& cell);

}  // namespace mergeloom
