#include "office/opc/ZipLocalEntry.h"

#include "office/opc/ByteOrder.h"
#include "office/opc/UnreadableFile.h"
#include "office/opc/ZipFormat.h"

#include <optional>

namespace mergeloom::opc {

namespace {

namespace local = zip::local;

/// A 32-bit field agrees with the directory's value, or its value is in a ZIP64 field.
bool agrees(std::string_view header, std::size_t field, std::uint64_t value) {
    const auto stored = littleEndianAt<std::uint32_t>(header, field);
    return stored == value || stored == zip::kInZip64;
}

bool agreesWithDirectory(std::string_view header, const ZipEntry& entry) {
    const auto flags = littleEndianAt<std::uint16_t>(header, local::kFlags);
    if (littleEndianAt<std::uint16_t>(header, local::kMethod) != entry.method) return false;
    if ((flags & zip::kEncrypted) != 0) return false;
    // With a data descriptor the header was written before crc and sizes were known (APPNOTE 4.4.4, bit 3).
    if ((flags & zip::kHasDescriptor) != 0) return true;
    return littleEndianAt<std::uint32_t>(header, local::kCrc) == entry.crc &&
           agrees(header, local::kCompressedSize, entry.compressedSize) &&
           agrees(header, local::kSize, entry.size);
}

template <typename Size>
std::string descriptorOf(const ZipEntry& entry) {
    std::string descriptor;
    appendLittleEndian(descriptor, entry.crc);
    appendLittleEndian(descriptor, static_cast<Size>(entry.compressedSize));
    appendLittleEndian(descriptor, static_cast<Size>(entry.size));
    return descriptor;
}

/// How long the data descriptor is that the bytes behind the data start with. It comes with or without a
/// signature, with sizes of 32 or 64 bits, and nothing in the file says which (APPNOTE 4.3.9). Some writers
/// leave it out.
std::optional<std::size_t> descriptorLength(const ZipEntry& entry, std::string_view behindData) {
    std::string signature;
    appendLittleEndian(signature, zip::kDescriptorSignature);
    const std::string narrow = descriptorOf<std::uint32_t>(entry);
    const std::string wide = descriptorOf<std::uint64_t>(entry);
    for (const std::string& candidate : {signature + wide, wide, signature + narrow, narrow}) {
        if (behindData.starts_with(candidate)) return candidate.size();
    }
    if (behindData.empty()) return 0;
    return std::nullopt;
}

}  // namespace

std::string locateEntry(ZipEntry& entry, std::string_view archive, std::uint64_t limit) {
    const std::string who = "the entry " + quoted(entry.name);
    const std::string_view room = archive.substr(0, limit).substr(entry.offset);
    if (room.size() < local::kLength) return who + " overlaps what follows it";
    if (littleEndianAt<std::uint32_t>(room, 0) != zip::kLocalSignature) return who + " has no header";
    const auto nameLength = littleEndianAt<std::uint16_t>(room, local::kNameLength);
    const std::size_t start =
        local::kLength + nameLength + littleEndianAt<std::uint16_t>(room, local::kExtraLength);
    if (start > room.size() || entry.compressedSize > room.size() - start)
        return who + " overlaps what follows it";
    if (room.substr(local::kLength, nameLength) != entry.storedName || !agreesWithDirectory(room, entry)) {
        return who + " has a header that contradicts the directory";
    }
    const std::size_t end = start + entry.compressedSize;
    entry.data = room.substr(start, entry.compressedSize);
    entry.raw = room.substr(0, end);
    if ((littleEndianAt<std::uint16_t>(room, local::kFlags) & zip::kHasDescriptor) == 0) return {};
    const auto descriptor = descriptorLength(entry, room.substr(end));
    if (!descriptor) return who + " has a data descriptor that contradicts the directory";
    entry.raw = room.substr(0, end + *descriptor);
    return {};
}

}  // namespace mergeloom::opc
