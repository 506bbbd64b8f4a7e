#pragma once

#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// Returns the files that an office keeps in the folders for temporary files while it listens: one for the
/// pipe's name and one for the URL of its profile. An office that is killed leaves them.
std::vector<std::string> socketFiles(const std::string& pipeName, const std::string& profileUrl);

}  // namespace mergeloom::libreoffice
