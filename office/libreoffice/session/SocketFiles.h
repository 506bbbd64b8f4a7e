#pragma once

#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// The files that an office keeps in the folders for temporary files while it listens: one for the pipe's
/// name and one for the URL of its profile. An office that is killed leaves them behind.
std::vector<std::string> socketFiles(const std::string& pipeName, const std::string& profileUrl);

}  // namespace mergeloom::libreoffice
