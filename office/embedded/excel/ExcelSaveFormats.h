#pragma once

#include "office/embedded/parts/SaveFormats.h"

namespace mergeloom::embedded {

/// The formats of XlFileFormat that the engine writes (ECMA-376 Part 1, 12.3.23; the types with macros are
/// [MS-OFFMACRO2]'s).
const SaveFormats& excelSaveFormats();

}  // namespace mergeloom::embedded
