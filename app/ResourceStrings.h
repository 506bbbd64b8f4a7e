#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace mergeloom {

/// The string with the id in the string table (resource type 6) of a Windows library in the PE32 or PE32+
/// format, in the first language that the table has. Empty when there is no such string or the bytes are not
/// such a library; bytes of any kind are safe to pass in.
std::u16string resourceString(std::string_view library, std::uint32_t id);

}  // namespace mergeloom
