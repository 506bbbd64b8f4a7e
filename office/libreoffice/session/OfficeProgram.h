#pragma once

#include <string>

namespace mergeloom::libreoffice {

/// Returns the path of LibreOffice's program: the value of the environment variable MERGELOOM_SOFFICE, else
/// "soffice" in the folders of PATH, else the path at which distributions install it. Raises kNotAvailable
/// with a sentence that says what to install or to correct.
std::string findOfficeProgram();

}  // namespace mergeloom::libreoffice
