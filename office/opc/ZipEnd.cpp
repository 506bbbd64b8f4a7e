#include "office/opc/ZipEnd.h"

#include "office/opc/ByteOrder.h"
#include "office/opc/CompoundFile.h"
#include "office/opc/UnreadableFile.h"
#include "office/opc/ZipFormat.h"

#include <optional>

namespace mergeloom::opc {

namespace {

struct EndFields {
    std::uint64_t disk = 0;
    std::uint64_t directoryDisk = 0;
    std::uint64_t countHere = 0;
    std::uint64_t count = 0;
    std::uint64_t directorySize = 0;
    std::uint64_t directoryOffset = 0;
};

void requireZip(std::string_view bytes, const std::string& fileName) {
    if (bytes.empty()) raiseUnreadable(fileName, "it is empty");
    if (isCompoundFile(bytes)) {
        raiseUnreadable(fileName, holdsEncryptedPackage(bytes)
                                      ? "it is encrypted; save it without a password first"
                                      : "it is an old binary document and no Office Open XML document");
    }
    // Bytes before the first entry would let two programs see two different archives in one file.
    const bool zip = bytes.starts_with("PK\x03\x04") || bytes.starts_with("PK\x05\x06");
    if (!zip) raiseUnreadable(fileName, "it is no zip archive and so no Office Open XML document");
}

/// Where the end record stands: its comment must end where the file ends.
std::optional<std::size_t> positionOfEnd(std::string_view bytes) {
    const std::size_t longest = zip::end::kLength + zip::kInZip64Short;
    const std::size_t first = bytes.size() > longest ? bytes.size() - longest : 0;
    std::size_t position = bytes.rfind("PK\x05\x06");
    while (position != std::string_view::npos && position >= first) {
        const std::string_view record = bytes.substr(position);
        if (record.size() >= zip::end::kLength) {
            const auto comment = littleEndianAt<std::uint16_t>(record, zip::end::kCommentLength);
            if (record.size() == zip::end::kLength + comment) return position;
        }
        if (position == 0) break;
        position = bytes.rfind("PK\x05\x06", position - 1);
    }
    return std::nullopt;
}

EndFields readEnd(std::string_view record) {
    using namespace zip::end;
    return {littleEndianAt<std::uint16_t>(record, kDisk),
            littleEndianAt<std::uint16_t>(record, kDirectoryDisk),
            littleEndianAt<std::uint16_t>(record, kCountHere),
            littleEndianAt<std::uint16_t>(record, kCount),
            littleEndianAt<std::uint32_t>(record, kDirectorySize),
            littleEndianAt<std::uint32_t>(record, kDirectoryOffset)};
}

EndFields readZip64End(std::string_view record) {
    using namespace zip::zip64end;
    return {littleEndianAt<std::uint32_t>(record, kDisk),
            littleEndianAt<std::uint32_t>(record, kDirectoryDisk),
            littleEndianAt<std::uint64_t>(record, kCountHere),
            littleEndianAt<std::uint64_t>(record, kCount),
            littleEndianAt<std::uint64_t>(record, kDirectorySize),
            littleEndianAt<std::uint64_t>(record, kDirectoryOffset)};
}

/// Takes the fields that do not fit into the plain record from the ZIP64 record.
void widen(EndFields& fields, const EndFields& wide) {
    if (fields.disk == zip::kInZip64Short) fields.disk = wide.disk;
    if (fields.directoryDisk == zip::kInZip64Short) fields.directoryDisk = wide.directoryDisk;
    if (fields.countHere == zip::kInZip64Short) fields.countHere = wide.countHere;
    if (fields.count == zip::kInZip64Short) fields.count = wide.count;
    if (fields.directorySize == zip::kInZip64) fields.directorySize = wide.directorySize;
    if (fields.directoryOffset == zip::kInZip64) fields.directoryOffset = wide.directoryOffset;
}

/// The ZIP64 record's position when a locator stands before the end record.
std::optional<std::uint64_t> positionOfZip64End(std::string_view bytes, std::size_t endPosition) {
    using namespace zip::zip64locator;
    if (endPosition < kLength) return std::nullopt;
    const std::string_view locator = bytes.substr(endPosition - kLength, kLength);
    if (littleEndianAt<std::uint32_t>(locator, 0) != zip::kZip64LocatorSignature) return std::nullopt;
    return littleEndianAt<std::uint64_t>(locator, kEndOffset);
}

}  // namespace

ZipEnd findZipEnd(std::string_view bytes, const std::string& fileName) {
    requireZip(bytes, fileName);
    const std::optional<std::size_t> position = positionOfEnd(bytes);
    if (!position)
        raiseUnreadable(fileName, "the end of its zip archive is missing; it is truncated or damaged");
    EndFields fields = readEnd(bytes.substr(*position));
    std::uint64_t limit = *position;
    if (const auto wide = positionOfZip64End(bytes, *position)) {
        const std::uint64_t locator = *position - zip::zip64locator::kLength;
        const bool inside = locator >= zip::zip64end::kLength && *wide <= locator - zip::zip64end::kLength;
        if (!inside || littleEndianAt<std::uint32_t>(bytes, *wide) != zip::kZip64EndSignature) {
            raiseUnreadable(fileName, "the ZIP64 record of its zip archive is damaged");
        }
        widen(fields, readZip64End(bytes.substr(*wide)));
        limit = *wide;
    }
    if (fields.disk != 0 || fields.directoryDisk != 0 || fields.count != fields.countHere) {
        raiseUnreadable(fileName, "its zip archive is split over several files");
    }
    if (fields.directoryOffset > limit || fields.directorySize > limit - fields.directoryOffset) {
        raiseUnreadable(fileName, "the directory of its zip archive lies outside of the file; it is damaged");
    }
    return {fields.count, bytes.substr(fields.directoryOffset, fields.directorySize), fields.directoryOffset,
            bytes.substr(*position + zip::end::kLength)};
}

}  // namespace mergeloom::opc
