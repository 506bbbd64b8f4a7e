#pragma once

#include <cstddef>
#include <string>

namespace mergeloom {

/// In bytes.
inline constexpr std::size_t kMaxFileNameLength = 255;

/// The name as every file system takes it: characters that Windows or POSIX refuse become "_", a reserved
/// name (CON, NUL, COM1 …) gets "_" after it, dots and blanks at the end go, and what is longer than the
/// given number of bytes is cut before its extension. Never empty.
std::string validFileName(const std::string& name, std::size_t longest = kMaxFileNameLength);

}  // namespace mergeloom
