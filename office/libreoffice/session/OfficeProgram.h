#pragma once

#include <string>

namespace mergeloom::libreoffice {

/// The path of LibreOffice's program: what the environment variable MERGELOOM_SOFFICE names, else "soffice"
/// in the folders of PATH, else where distributions put it. Raises kNotAvailable with a sentence that says
/// what to install or to correct.
std::string findOfficeProgram();

}  // namespace mergeloom::libreoffice
