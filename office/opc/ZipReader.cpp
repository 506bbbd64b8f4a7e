#include "office/opc/ZipReader.h"

#include "office/opc/ByteOrder.h"
#include "office/opc/Codec.h"
#include "office/opc/PartName.h"
#include "office/opc/UnreadableFile.h"

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>

using namespace std::string_view_literals;

namespace mergeloom::opc {

namespace {

// Compound files ([MS-CFB]) contain the binary documents of the time before Office Open XML and, today,
// encrypted packages. They are only recognised here, so that the refusal can name the file's type.
constexpr auto kCompoundFileSignature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv;
constexpr auto kEncryptedPackage = "E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0\0\0"sv;

// A directory entry is 128 bytes long, and sectors are multiples of that, so entries begin at multiples of
// 128 wherever the directory is ([MS-CFB] 2.6.1).
constexpr std::size_t kDirectoryEntrySize = 128;
constexpr std::size_t kNameLengthOffset = 64;
constexpr std::size_t kObjectTypeOffset = 66;
constexpr char kStreamObject = 2;

bool isEncryptedPackageEntry(std::string_view entry) {
    return entry.starts_with(kEncryptedPackage) &&
           littleEndianAt<std::uint16_t>(entry, kNameLengthOffset) == kEncryptedPackage.size() &&
           entry[kObjectTypeOffset] == kStreamObject;
}

bool isCompoundFile(std::string_view bytes) {
    return bytes.starts_with(kCompoundFileSignature);
}

/// Returns true if the compound file has the stream "EncryptedPackage" ([MS-OFFCRYPTO] 2.3.4.4).
bool holdsEncryptedPackage(std::string_view bytes) {
    for (; bytes.size() >= kDirectoryEntrySize; bytes.remove_prefix(kDirectoryEntrySize)) {
        if (isEncryptedPackageEntry(bytes.substr(0, kDirectoryEntrySize))) return true;
    }
    return false;
}

/// The central directory's position and size as the end of the archive states them (APPNOTE 4.3.14
/// to 4.3.16); offsets count from the archive's first byte.
struct ZipEnd {
    std::uint64_t entryCount = 0;
    std::string_view directory;
    std::uint64_t directoryOffset = 0;
    std::string_view comment;
};

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
    // Bytes before the first entry would let two programs read two different archives from one file.
    const bool zip = bytes.starts_with("PK\x03\x04") || bytes.starts_with("PK\x05\x06");
    if (!zip) raiseUnreadable(fileName, "it is no zip archive and so no Office Open XML document");
}

/// Returns the end record's position; its comment must end at the file's end.
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

/// Replaces the fields that do not fit into the plain record by those of the ZIP64 record.
void widen(EndFields& fields, const EndFields& wide) {
    if (fields.disk == zip::kInZip64Short) fields.disk = wide.disk;
    if (fields.directoryDisk == zip::kInZip64Short) fields.directoryDisk = wide.directoryDisk;
    if (fields.countHere == zip::kInZip64Short) fields.countHere = wide.countHere;
    if (fields.count == zip::kInZip64Short) fields.count = wide.count;
    if (fields.directorySize == zip::kInZip64) fields.directorySize = wide.directorySize;
    if (fields.directoryOffset == zip::kInZip64) fields.directoryOffset = wide.directoryOffset;
}

/// Returns the ZIP64 record's position if a locator precedes the end record.
std::optional<std::uint64_t> positionOfZip64End(std::string_view bytes, std::size_t endPosition) {
    using namespace zip::zip64locator;
    if (endPosition < kLength) return std::nullopt;
    const std::string_view locator = bytes.substr(endPosition - kLength, kLength);
    if (littleEndianAt<std::uint32_t>(locator, 0) != zip::kZip64LocatorSignature) return std::nullopt;
    return littleEndianAt<std::uint64_t>(locator, kEndOffset);
}

/// Finds the end of the archive. Raises kFileCouldNotBeRead, with the file's type if it is recognised, when
/// the bytes are no whole zip archive. The views refer to the bytes.
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

constexpr std::uint16_t kRefusedFlags =
    zip::kEncrypted | zip::kPatchData | zip::kStronglyEncrypted | zip::kMaskedHeader;

}  // namespace

ZipReader::ZipReader(std::string_view bytes, std::string fileName, const ZipLimits& limits)
    : fileName_(std::move(fileName)), limits_(limits) {
    const ZipEnd end = findZipEnd(bytes, fileName_);
    comment_ = end.comment;
    if (end.entryCount > limits_.entryCount) {
        refuse("it has more than " + std::to_string(limits_.entryCount) + " entries");
    }
    readDirectory(end.directory, end.entryCount);
    checkNamesDiffer();
    locateEntries(bytes, end.directoryOffset);
}

void ZipReader::readDirectory(std::string_view directory, std::uint64_t count) {
    std::uint64_t inflated = 0;
    for (std::uint64_t i = 0; i < count; ++i) {
        std::optional<ZipEntry> entry = readCentralRecord(directory);
        if (!entry) refuse("the directory of its zip archive is damaged");
        checkEntry(*entry);
        if (entry->method == zip::kDeflated) {
            inflated += std::min(entry->size, limits_.inflatedSize + 1);
            if (inflated > limits_.inflatedSize) refuse("its entries are too large when unpacked");
        }
        directory.remove_prefix(entry->centralRecord.size());
        entries_.push_back(std::move(*entry));
    }
    if (!directory.empty()) refuse("the directory of its zip archive holds more than it declares");
}

void ZipReader::checkEntry(const ZipEntry& entry) const {
    const std::string unfit = whyUnfitAsEntryName(entry.name);
    if (!unfit.empty()) refuse(unfit);
    const std::string who = "the entry " + quoted(entry.name);
    if ((entry.flags & kRefusedFlags) != 0) refuse(who + " is encrypted");
    if (entry.method != zip::kStored && entry.method != zip::kDeflated) {
        refuse(who + " is compressed by a method that packages do not use (" + std::to_string(entry.method) +
               ")");
    }
    if (entry.method == zip::kStored && entry.size != entry.compressedSize) {
        refuse(who + " declares a size that it does not have");
    }
}

void ZipReader::checkNamesDiffer() const {
    std::unordered_set<std::string> keys;
    for (const ZipEntry& entry : entries_) {
        if (!keys.insert(partKey(entry.name)).second) {
            refuse("it has two entries of the name " + quoted(entry.name));
        }
    }
}

void ZipReader::locateEntries(std::string_view bytes, std::uint64_t directoryOffset) {
    const auto before = [](const ZipEntry& a, const ZipEntry& b) { return a.offset < b.offset; };
    std::stable_sort(entries_.begin(), entries_.end(), before);
    if (!entries_.empty() && entries_.front().offset != 0) {
        refuse("its zip archive has foreign bytes before the first entry");
    }
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const std::uint64_t limit = i + 1 < entries_.size() ? entries_[i + 1].offset : directoryOffset;
        if (entries_[i].offset > directoryOffset || limit > directoryOffset) {
            refuse("the entry " + quoted(entries_[i].name) + " lies outside of the file; it is damaged");
        }
        const std::string wrong = locateEntry(entries_[i], bytes, limit);
        if (!wrong.empty()) refuse(wrong);
    }
}

std::string ZipReader::read(const ZipEntry& entry) const {
    checkSize(entry);
    std::optional<std::string> content = entry.method == zip::kStored
                                             ? std::optional(std::string(entry.data))
                                             : inflateExactly(entry.data, entry.size);
    if (!content) {
        refuse("the entry " + quoted(entry.name) + " is damaged or does not have the size that it declares");
    }
    if (crc32(*content) != entry.crc) {
        refuse("the entry " + quoted(entry.name) + " is damaged; its checksum is wrong");
    }
    return std::move(*content);
}

void ZipReader::checkSize(const ZipEntry& entry) const {
    const bool suspicious = entry.size > limits_.ratioFreeSize && entry.method == zip::kDeflated &&
                            entry.size / limits_.maxRatio > entry.compressedSize;
    if (entry.size > limits_.entrySize || suspicious) {
        refuse("the entry " + quoted(entry.name) + " is too large when unpacked (" +
               std::to_string(entry.size) + " bytes)");
    }
}

void ZipReader::refuse(const std::string& reason) const {
    raiseUnreadable(fileName_, reason);
}

}  // namespace mergeloom::opc
