#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace mergeloom::opc {

/// What the end of a zip archive says of its central directory (APPNOTE 4.3.14 to 4.3.16), offsets from the
/// archive's first byte.
struct ZipEnd {
    std::uint64_t entryCount = 0;
    std::string_view directory;
    std::uint64_t directoryOffset = 0;
    std::string_view comment;
};

/// Raises kFileCouldNotBeRead when the bytes are no whole zip archive, and says what they are where it shows.
/// The views point into the bytes.
ZipEnd findZipEnd(std::string_view bytes, const std::string& fileName);

}  // namespace mergeloom::opc
