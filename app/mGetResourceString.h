#pragma once

#include <cstdint>
#include <string>

namespace mergeloom {

/// Returns the string of a Windows library's string table, at most 259 UTF-16 code units of it. Empty when
/// the library cannot be read, is none, or has no such string.
std::string GetResourceString(const std::string& vstrLibraryFile, std::int32_t vlngId);

}  // namespace mergeloom
