#pragma once

#include "office/model/excel/Range.h"

#include <functional>

/// Ways from a cell to its neighbours.
namespace mergeloom {

/// Returns the range that a call of the object model returns; null when it leads out of the sheet or to no
/// cells.
excel::RangePtr rangeOrNone(const std::function<excel::RangePtr()>& call);

/// Returns the cell to the right of a cell, after the merged cells that it belongs to.
excel::RangePtr cellRightOf(excel::Range& cell);

/// Returns the cell the given number of rows below, or the first one below the merged cells there when those
/// begin further up, since they may hold what is above. Raises kApplicationDefined below the last row.
excel::RangePtr cellBelow(excel::Range& cell, int rows);

/// Returns the number of rows of a cell and the cells that it is merged with.
int rowsOf(excel::Range& cell);

}  // namespace mergeloom
