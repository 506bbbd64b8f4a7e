#pragma once

#include "office/embedded/sheet/SheetState.h"

#include <string>

namespace mergeloom::embedded {

/// The part with its changes; what was not changed is copied byte for byte.
std::string writeSheet(const SheetState& sheet);

}  // namespace mergeloom::embedded
