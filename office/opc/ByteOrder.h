#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Numbers in files, read and written byte by byte, independent of the machine's byte order.
namespace mergeloom::opc {

/// Returns the number at an offset, lowest byte first. All of its bytes must be in the text.
template <std::unsigned_integral Number>
Number littleEndianAt(std::string_view bytes, std::size_t offset) {
    Number number = 0;
    for (std::size_t i = sizeof(Number); i-- > 0;) {
        const auto byte = static_cast<unsigned char>(bytes[offset + i]);
        number = static_cast<Number>((std::uint64_t{number} << 8U) | byte);
    }
    return number;
}

/// Returns the number at an offset, highest byte first. All of its bytes must be in the text.
template <std::unsigned_integral Number>
Number bigEndianAt(std::string_view bytes, std::size_t offset) {
    Number number = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[offset + i]);
        number = static_cast<Number>((std::uint64_t{number} << 8U) | byte);
    }
    return number;
}

template <std::unsigned_integral Number>
void putLittleEndian(std::string& bytes, std::size_t offset, Number number) {
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
        bytes[offset + i] = static_cast<char>((std::uint64_t{number} >> (8 * i)) & 0xFF);
    }
}

template <std::unsigned_integral Number>
void appendLittleEndian(std::string& bytes, Number number) {
    bytes.resize(bytes.size() + sizeof(Number));
    putLittleEndian(bytes, bytes.size() - sizeof(Number), number);
}

}  // namespace mergeloom::opc
