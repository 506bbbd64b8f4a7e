#pragma once

#include "office/embedded/parts/SaveFormats.h"

namespace mergeloom::embedded {

/// The formats of WdSaveFormat that the engine writes (ECMA-376 Part 1, 11.3.10; the types with macros are
/// [MS-OFFMACRO2]'s).
const SaveFormats& wordSaveFormats();

}  // namespace mergeloom::embedded
