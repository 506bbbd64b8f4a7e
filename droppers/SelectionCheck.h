#pragma once

#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"

namespace mergeloom {

/// Returns true when several places may be dropped at the selection: it holds no table, bookmark, field,
/// picture or shape. A caret right below a table does not hold the bookmark over that table.
bool takesCompositeDrop(word::Selection& selection);

/// Returns the number of table cells that a range covers; 0 where the office raises an error, as outside of
/// tables.
int cellCount(word::Range& range);

/// Returns true if the range is in a table and covers two or more of its cells.
bool coversSeveralCells(word::Range& range);

}  // namespace mergeloom
