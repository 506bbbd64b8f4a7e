#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace mergeloom {

/// Returns the string of a Windows library's string table, at most 259 UTF-16 code units of it. Empty when
/// the library cannot be read, is none, or has no such string.
std::string GetResourceString(const std::string& vstrLibraryFile, std::int32_t vlngId);

/// Returns the string with the id in the string table (resource type 6) of a Windows library in the PE32 or
/// PE32+ format, in the first language of the table. Empty when there is no such string or the bytes are not
/// such a library; bytes of any kind are safe.
std::u16string resourceString(std::string_view library, std::uint32_t id);

}  // namespace mergeloom
