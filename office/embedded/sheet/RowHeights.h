#pragma once

#include "office/embedded/sheet/SheetPart.h"
#include "office/embedded/sheet/SheetState.h"

#include <functional>

namespace mergeloom::embedded {

/// The rows that have a height of their own or are hidden, as they stand now, in order.
void visitRowHeights(const SheetState& sheet, const std::function<void(const StoredRowHeight&)>& visit);

}  // namespace mergeloom::embedded
