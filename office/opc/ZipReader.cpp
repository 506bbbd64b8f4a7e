#include "office/opc/ZipReader.h"

#include "office/opc/Codec.h"
#include "office/opc/EntryName.h"
#include "office/opc/PartName.h"
#include "office/opc/UnreadableFile.h"
#include "office/opc/ZipCentralRecord.h"
#include "office/opc/ZipEnd.h"
#include "office/opc/ZipFormat.h"
#include "office/opc/ZipLocalEntry.h"

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>

namespace mergeloom::opc {

namespace {

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
                            entry.size / limits_.highestRatio > entry.compressedSize;
    if (entry.size > limits_.entrySize || suspicious) {
        refuse("the entry " + quoted(entry.name) + " is too large when unpacked (" +
               std::to_string(entry.size) + " bytes)");
    }
}

void ZipReader::refuse(const std::string& reason) const {
    raiseUnreadable(fileName_, reason);
}

}  // namespace mergeloom::opc
