#include "office/opc/ZipRecords.h"

#include "office/opc/ByteOrder.h"
#include "office/opc/PartName.h"
#include "office/opc/UnreadableFile.h"

#include <algorithm>

namespace mergeloom::opc {

namespace {

namespace central = zip::central;
namespace local = zip::local;

constexpr std::size_t kExtraHeader = 4;
constexpr std::size_t kWide = sizeof(std::uint64_t);

std::size_t extraOffset(std::string_view record) {
    return central::kLength + littleEndianAt<std::uint16_t>(record, central::kNameLength);
}

std::string_view extraOf(std::string_view record) {
    return record.substr(extraOffset(record), littleEndianAt<std::uint16_t>(record, central::kExtraLength));
}

/// Returns the data of the ZIP64 extra field in the record. An extra field that is longer than the rest is in
/// no known format and ends the search.
std::optional<std::string_view> zip64Extra(std::string_view record) {
    std::string_view extra = extraOf(record);
    while (extra.size() >= kExtraHeader) {
        const auto id = littleEndianAt<std::uint16_t>(extra, 0);
        const auto size = littleEndianAt<std::uint16_t>(extra, 2);
        if (size > extra.size() - kExtraHeader) return std::nullopt;
        if (id == zip::kZip64ExtraId) return extra.substr(kExtraHeader, size);
        extra.remove_prefix(kExtraHeader + size);
    }
    return std::nullopt;
}

/// Replaces a value that does not fit into 32 bits by the next 8 bytes of the ZIP64 field.
void widen(std::uint64_t& value, std::string_view& wide) {
    if (value != zip::kInZip64 || wide.size() < kWide) return;
    value = littleEndianAt<std::uint64_t>(wide, 0);
    wide.remove_prefix(kWide);
}

/// Returns the position of the offset in the ZIP64 field's data, which is after the sizes in it.
std::size_t wideOffsetPosition(std::string_view record) {
    const auto isWide = [&](std::size_t field) {
        return littleEndianAt<std::uint32_t>(record, field) == zip::kInZip64;
    };
    return (isWide(central::kSize) ? kWide : 0) + (isWide(central::kCompressedSize) ? kWide : 0);
}

void growExtra(std::string& record, std::size_t position, const std::string& bytes) {
    const auto before = littleEndianAt<std::uint16_t>(record, central::kExtraLength);
    record.insert(position, bytes);
    putLittleEndian(record, central::kExtraLength, static_cast<std::uint16_t>(before + bytes.size()));
}

/// Writes an offset that needs 64 bits into a record that had a short one.
void putWideOffset(std::string& record, std::uint64_t offset) {
    const auto versionNeeded = littleEndianAt<std::uint16_t>(record, central::kVersionNeeded);
    putLittleEndian(record, central::kVersionNeeded, std::max(versionNeeded, zip::kVersionZip64));
    std::string wide;
    appendLittleEndian(wide, offset);
    const auto extra = zip64Extra(record);
    if (!extra) {
        std::string field;
        appendLittleEndian(field, zip::kZip64ExtraId);
        appendLittleEndian(field, static_cast<std::uint16_t>(kWide));
        growExtra(record, extraOffset(record), field + wide);
        return;
    }
    const auto start = static_cast<std::size_t>(extra->data() - record.data());
    const std::size_t position = wideOffsetPosition(record);
    if (extra->size() >= position + kWide) {
        record.replace(start + position, kWide, wide);
        return;
    }
    const auto newSize = static_cast<std::uint16_t>(extra->size() + kWide);
    putLittleEndian(record, start - sizeof(std::uint16_t), newSize);
    growExtra(record, start + position, wide);
}

/// Returns true if a 32-bit field equals the directory's value or refers to a ZIP64 field.
bool agrees(std::string_view header, std::size_t field, std::uint64_t value) {
    const auto stored = littleEndianAt<std::uint32_t>(header, field);
    return stored == value || stored == zip::kInZip64;
}

bool agreesWithDirectory(std::string_view header, const ZipEntry& entry) {
    const auto flags = littleEndianAt<std::uint16_t>(header, local::kFlags);
    if (littleEndianAt<std::uint16_t>(header, local::kMethod) != entry.method) return false;
    if ((flags & zip::kEncrypted) != 0) return false;
    // A header with a data descriptor was written before crc and sizes were known (APPNOTE 4.4.4, bit 3).
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

/// Returns the length of the data descriptor at the start of the bytes after the data; none when the bytes
/// are not a descriptor. It has a signature or none and sizes of 32 or 64 bits, and no field states which
/// (APPNOTE 4.3.9). Some writers omit it.
std::optional<std::size_t> descriptorLength(const ZipEntry& entry, std::string_view afterData) {
    std::string signature;
    appendLittleEndian(signature, zip::kDescriptorSignature);
    const std::string narrow = descriptorOf<std::uint32_t>(entry);
    const std::string wide = descriptorOf<std::uint64_t>(entry);
    for (const std::string& candidate : {signature + wide, wide, signature + narrow, narrow}) {
        if (afterData.starts_with(candidate)) return candidate.size();
    }
    if (afterData.empty()) return 0;
    return std::nullopt;
}

}  // namespace

std::optional<ZipEntry> readCentralRecord(std::string_view directory) {
    if (directory.size() < central::kLength) return std::nullopt;
    if (littleEndianAt<std::uint32_t>(directory, 0) != zip::kCentralSignature) return std::nullopt;
    const std::size_t length = extraOffset(directory) +
                               littleEndianAt<std::uint16_t>(directory, central::kExtraLength) +
                               littleEndianAt<std::uint16_t>(directory, central::kCommentLength);
    if (directory.size() < length) return std::nullopt;

    ZipEntry entry;
    const std::string_view record = directory.substr(0, length);
    entry.centralRecord = record;
    entry.storedName =
        record.substr(central::kLength, littleEndianAt<std::uint16_t>(record, central::kNameLength));
    entry.flags = littleEndianAt<std::uint16_t>(record, central::kFlags);
    entry.name = decodeEntryName(entry.storedName, (entry.flags & zip::kUtf8Name) != 0);
    entry.method = littleEndianAt<std::uint16_t>(record, central::kMethod);
    entry.crc = littleEndianAt<std::uint32_t>(record, central::kCrc);
    entry.compressedSize = littleEndianAt<std::uint32_t>(record, central::kCompressedSize);
    entry.size = littleEndianAt<std::uint32_t>(record, central::kSize);
    entry.offset = littleEndianAt<std::uint32_t>(record, central::kLocalOffset);
    std::string_view wide = zip64Extra(record).value_or(std::string_view());
    widen(entry.size, wide);
    widen(entry.compressedSize, wide);
    widen(entry.offset, wide);
    return entry;
}

std::string centralRecordAt(const ZipEntry& entry, std::uint64_t offset) {
    std::string record(entry.centralRecord);
    const bool wasWide = littleEndianAt<std::uint32_t>(record, central::kLocalOffset) == zip::kInZip64;
    if (!wasWide && offset < zip::kInZip64) {
        putLittleEndian(record, central::kLocalOffset, static_cast<std::uint32_t>(offset));
        return record;
    }
    putLittleEndian(record, central::kLocalOffset, zip::kInZip64);
    putWideOffset(record, offset);
    return record;
}

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
