#include "office/opc/CompoundFile.h"

#include "office/opc/ByteOrder.h"

using namespace std::string_view_literals;

namespace mergeloom::opc {

namespace {

constexpr auto kSignature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv;
constexpr auto kEncryptedPackage = "E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0\0\0"sv;

// [MS-CFB] 2.6.1: a directory entry is 128 bytes long, and sectors are multiples of that, so entries stand at
// multiples of 128 wherever the directory lies.
constexpr std::size_t kDirectoryEntrySize = 128;
constexpr std::size_t kNameLengthOffset = 64;
constexpr std::size_t kObjectTypeOffset = 66;
constexpr char kStreamObject = 2;

bool isEncryptedPackageEntry(std::string_view entry) {
    return entry.starts_with(kEncryptedPackage) &&
           littleEndianAt<std::uint16_t>(entry, kNameLengthOffset) == kEncryptedPackage.size() &&
           entry[kObjectTypeOffset] == kStreamObject;
}

}  // namespace

bool isCompoundFile(std::string_view bytes) {
    return bytes.starts_with(kSignature);
}

bool holdsEncryptedPackage(std::string_view bytes) {
    for (; bytes.size() >= kDirectoryEntrySize; bytes.remove_prefix(kDirectoryEntrySize)) {
        if (isEncryptedPackageEntry(bytes.substr(0, kDirectoryEntrySize))) return true;
    }
    return false;
}

}  // namespace mergeloom::opc
