#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace mergeloom::opc {

/// One entry of a zip archive. The views point into the archive's bytes.
struct ZipEntry {
    std::string name;  ///< as stored, in UTF-8; backslashes stay
    std::uint16_t flags = 0;
    std::uint16_t method = 0;
    std::uint32_t crc = 0;
    std::uint64_t compressedSize = 0;
    std::uint64_t size = 0;
    std::string_view storedName;
    std::string_view centralRecord;  ///< the whole record of the central directory (APPNOTE 4.3.12)
    std::string_view raw;            ///< local header, data and data descriptor as they stand
    std::string_view data;           ///< the compressed bytes, the middle of raw
    std::uint64_t offset = 0;        ///< where raw starts
};

}  // namespace mergeloom::opc
