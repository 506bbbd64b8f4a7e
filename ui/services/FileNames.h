#pragma once

#include <string>

namespace mergeloom {

/// The name as every file system takes it: characters that Windows or POSIX refuse become "_", a reserved
/// name (CON, NUL, COM1 …) gets "_" behind it, dots and blanks at the end go, and what is longer than 255
/// bytes is cut before its extension. Never empty.
std::string validFileName(const std::string& name);

}  // namespace mergeloom
