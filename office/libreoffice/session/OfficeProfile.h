#pragma once

#include "office/libreoffice/session/OfficeMode.h"

#include <string>

namespace mergeloom::libreoffice {

/// Makes the profile of an office in a folder that does not exist yet. Its office leaves no marks beside the
/// documents that it opens; a shown one greets nobody. Raises kNotAvailable when the folder cannot be
/// written.
void makeOfficeProfile(const std::string& folder, OfficeMode mode);

}  // namespace mergeloom::libreoffice
