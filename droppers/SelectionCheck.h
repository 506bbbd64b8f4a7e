#pragma once

#include "office/model/word/Selection.h"

namespace mergeloom {

/// Whether a drop of several places may go to the selection: it holds no table, bookmark, field, picture or
/// shape.
bool takesCompositeDrop(word::Selection& selection);

}  // namespace mergeloom
