#pragma once

#include "office/model/word/Range.h"

namespace mergeloom {

/// How many table cells a range covers; 0 where the document does not tell, as outside of tables.
int cellCount(word::Range& range);

/// Whether the range lies in a table and covers two or more of its cells.
bool coversSeveralCells(word::Range& range);

}  // namespace mergeloom
