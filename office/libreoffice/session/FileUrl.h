#pragma once

#include <string>

namespace mergeloom::libreoffice {

/// The URL of a path from the root, byte for byte: no locale has a say in it.
std::string fileUrl(const std::string& path);

}  // namespace mergeloom::libreoffice
