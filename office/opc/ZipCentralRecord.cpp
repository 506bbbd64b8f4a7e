#include "office/opc/ZipCentralRecord.h"

#include "office/opc/ByteOrder.h"
#include "office/opc/EntryName.h"
#include "office/opc/ZipFormat.h"

#include <algorithm>

namespace mergeloom::opc {

namespace {

namespace central = zip::central;

constexpr std::size_t kExtraHeader = 4;
constexpr std::size_t kWide = sizeof(std::uint64_t);

std::size_t extraOffset(std::string_view record) {
    return central::kLength + littleEndianAt<std::uint16_t>(record, central::kNameLength);
}

std::string_view extraOf(std::string_view record) {
    return record.substr(extraOffset(record), littleEndianAt<std::uint16_t>(record, central::kExtraLength));
}

/// Where the data of the ZIP64 extra field lie in the record. Extra fields that run over their end belong to
/// no format that we know and end the search.
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

/// Takes the next 8 bytes of the ZIP64 field for a value that its 32 bits could not hold.
void widen(std::uint64_t& value, std::string_view& wide) {
    if (value != zip::kInZip64 || wide.size() < kWide) return;
    value = littleEndianAt<std::uint64_t>(wide, 0);
    wide.remove_prefix(kWide);
}

/// Where the ZIP64 field holds the offset, counted from the start of its data: behind the sizes that it
/// holds.
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

/// Puts an offset that needs 64 bits into a record that had a short one.
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

}  // namespace mergeloom::opc
