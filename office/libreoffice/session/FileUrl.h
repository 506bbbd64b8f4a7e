#pragma once

#include <string>

namespace mergeloom::libreoffice {

/// Returns the URL of an absolute path, byte for byte and independent of the locale.
std::string fileUrl(const std::string& path);

}  // namespace mergeloom::libreoffice
