#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The records of a zip archive (APPNOTE.TXT 6.3.10): signatures, lengths and the offsets of their fields.
namespace mergeloom::opc::zip {

inline constexpr std::uint32_t kLocalSignature = 0x04034b50;         // 4.3.7
inline constexpr std::uint32_t kDescriptorSignature = 0x08074b50;    // 4.3.9
inline constexpr std::uint32_t kCentralSignature = 0x02014b50;       // 4.3.12
inline constexpr std::uint32_t kZip64EndSignature = 0x06064b50;      // 4.3.14
inline constexpr std::uint32_t kZip64LocatorSignature = 0x07064b50;  // 4.3.15
inline constexpr std::uint32_t kEndSignature = 0x06054b50;           // 4.3.16

/// A field of 16 or 32 bits with this value has its real value in a ZIP64 record (4.4.1.4).
inline constexpr std::uint16_t kInZip64Short = 0xFFFF;
inline constexpr std::uint32_t kInZip64 = 0xFFFFFFFF;
inline constexpr std::uint16_t kZip64ExtraId = 0x0001;  // 4.5.3

inline constexpr std::uint16_t kVersionDeflate = 20;  // 4.4.3
inline constexpr std::uint16_t kVersionZip64 = 45;

enum Flag : std::uint16_t {  // 4.4.4
    kEncrypted = 1U << 0U,
    kHasDescriptor = 1U << 3U,
    kPatchData = 1U << 5U,
    kStronglyEncrypted = 1U << 6U,
    kUtf8Name = 1U << 11U,
    kMaskedHeader = 1U << 13U,
};

enum Method : std::uint16_t { kStored = 0, kDeflated = 8 };  // 4.4.5

namespace local {
inline constexpr std::size_t kFlags = 6, kMethod = 8, kCrc = 14, kCompressedSize = 18, kSize = 22,
                             kNameLength = 26, kExtraLength = 28, kLength = 30;
}

namespace central {
inline constexpr std::size_t kVersionNeeded = 6, kFlags = 8, kMethod = 10, kCrc = 16, kCompressedSize = 20,
                             kSize = 24, kNameLength = 28, kExtraLength = 30, kCommentLength = 32, kDisk = 34,
                             kLocalOffset = 42, kLength = 46;
}

namespace end {
inline constexpr std::size_t kDisk = 4, kDirectoryDisk = 6, kCountHere = 8, kCount = 10, kDirectorySize = 12,
                             kDirectoryOffset = 16, kCommentLength = 20, kLength = 22;
}

namespace zip64locator {
inline constexpr std::size_t kEndOffset = 8, kDisks = 16, kLength = 20;
}

namespace zip64end {
inline constexpr std::size_t kDisk = 16, kDirectoryDisk = 20, kCountHere = 24, kCount = 32,
                             kDirectorySize = 40, kDirectoryOffset = 48, kLength = 56;
}

}  // namespace mergeloom::opc::zip

namespace mergeloom::opc {

/// One entry of a zip archive. The views refer to the archive's bytes.
struct ZipEntry {
    std::string name;  ///< as stored, in UTF-8; backslashes stay
    std::uint16_t flags = 0;
    std::uint16_t method = 0;
    std::uint32_t crc = 0;
    std::uint64_t compressedSize = 0;
    std::uint64_t size = 0;
    std::string_view storedName;
    std::string_view centralRecord;  ///< the whole record of the central directory (APPNOTE 4.3.12)
    std::string_view raw;            ///< local header, data and data descriptor
    std::string_view data;           ///< the compressed bytes, the middle of raw
    std::uint64_t offset = 0;        ///< of raw in the archive
};

/// Returns the first record of a central directory, its ZIP64 fields resolved (APPNOTE 4.5.3); raw and data
/// are still empty. None when the bytes do not start with a complete record.
std::optional<ZipEntry> readCentralRecord(std::string_view directory);

/// Returns the record of an entry with a new offset of its local header and all other fields unchanged.
std::string centralRecordAt(const ZipEntry& entry, std::uint64_t offset);

/// Finds an entry's local header, data and data descriptor in the archive and sets raw and data. All of them
/// must end before the limit, the start of the next entry or of the central directory. Returns why the local
/// header and the directory contradict each other, as a clause for a message; empty when they agree.
std::string locateEntry(ZipEntry& entry, std::string_view archive, std::uint64_t limit);

}  // namespace mergeloom::opc
