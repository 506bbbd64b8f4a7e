#pragma once

#include "office/embedded/sheet/SheetState.h"

#include <string>

namespace mergeloom::embedded {

/// Returns the part with its changes; everything else is copied byte for byte.
std::string writeSheet(const SheetState& sheet);

}  // namespace mergeloom::embedded
