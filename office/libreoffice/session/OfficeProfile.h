#pragma once

#include <string>

namespace mergeloom::libreoffice {

/// Makes the profile of an office in a folder that does not exist yet: one that leaves no marks beside the
/// documents that it opens. Raises kNotAvailable when the folder cannot be written.
void makeOfficeProfile(const std::string& folder);

}  // namespace mergeloom::libreoffice
