#pragma once

#include "office/libreoffice/entry/OfficeModule.h"

#include <string>

namespace mergeloom {

/// Returns the module for LibreOffice, which is loaded at the first call from beside the program or from
/// ../lib/mergeloom and kept to the program's end. Raises kNotAvailable, with a sentence that says what to
/// install or choose, when it is missing, LibreOffice's libraries are missing or it belongs to another
/// version.
OfficeModule& libreOfficeModule();

/// Returns the sentence for users whose file only LibreOffice could convert, when there is no module.
std::string libreOfficeIsMissing();

}  // namespace mergeloom
