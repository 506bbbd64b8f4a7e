#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Deflate (RFC 1951) and the checksum of zip archives.
namespace mergeloom::opc {

/// How hard deflating tries, from 1 to 12.
struct DeflateLevel {
    int value = 0;
};

std::string deflate(std::string_view bytes, DeflateLevel level);

/// Inflates a stream that takes up all of the deflated bytes and yields exactly the given number; nothing
/// when it is damaged, yields fewer or would yield more. Memory grows with what comes out and not with the
/// number asked for, so that a declared size that lies costs nothing.
std::optional<std::string> inflateExactly(std::string_view deflated, std::size_t size);

/// CRC-32 as APPNOTE 4.4.7 has it.
std::uint32_t crc32(std::string_view bytes);

}  // namespace mergeloom::opc
