#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Deflate (RFC 1951) and the checksum of zip archives.
namespace mergeloom::opc {

/// The compression level, from 1 (fast) to 12 (small).
struct DeflateLevel {
    int value = 0;
};

std::string deflate(std::string_view bytes, DeflateLevel level);

/// Inflates a stream that takes up all of the deflated bytes and yields exactly the given number of bytes.
/// Returns none if it is damaged or yields another number. Memory grows with the output and not with that
/// number, so that a false declared size costs nothing.
std::optional<std::string> inflateExactly(std::string_view deflated, std::size_t size);

/// Returns the CRC-32 of APPNOTE 4.4.7.
std::uint32_t crc32(std::string_view bytes);

}  // namespace mergeloom::opc
