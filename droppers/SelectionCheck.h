#pragma once

#include "office/model/word/Selection.h"

namespace mergeloom {

/// Whether a drop of several places may go to the selection: it holds no table, bookmark, field, picture or
/// shape. A caret right below a table does not hold the bookmark over that table.
bool takesCompositeDrop(word::Selection& selection);

}  // namespace mergeloom
