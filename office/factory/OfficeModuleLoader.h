#pragma once

#include "office/libreoffice/entry/OfficeModule.h"

namespace mergeloom {

/// The module for LibreOffice, loaded when it is first asked for and kept to the program's end: from beside
/// the program, or from ../lib/mergeloom. Raises kNotAvailable, with a sentence that says what to install or
/// choose, when it is not there, LibreOffice's libraries are missing or it belongs to another version of the
/// program.
OfficeModule& libreOfficeModule();

}  // namespace mergeloom
