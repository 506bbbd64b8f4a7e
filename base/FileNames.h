#pragma once

#include <cstddef>
#include <string>

namespace mergeloom {

/// In bytes.
inline constexpr std::size_t kMaxFileNameLength = 255;

/// Returns the name in a form that every file system accepts: characters that Windows or POSIX refuse become
/// "_", a reserved name (CON, NUL, COM1 …) gets "_" after it, dots and blanks at the end are removed, and a
/// name longer than the given number of bytes is cut before its extension. Never empty.
std::string validFileName(const std::string& name, std::size_t longest = kMaxFileNameLength);

}  // namespace mergeloom
