#include "office/opc/PartStore.h"

#include "base/Text.h"
#include "office/opc/Codec.h"
#include "office/opc/PartName.h"
#include "office/opc/ZipRecords.h"

#include <algorithm>
#include <array>
#include <utility>

namespace mergeloom::opc {

namespace {

/// Pictures in formats that are compressed already: deflating them costs time and gains nothing.
Packing packingOf(std::string_view entryName) {
    static constexpr std::array<std::string_view, 4> kCompressed = {"png", "jpg", "jpeg", "gif"};
    const std::string extension = toLowerAscii(extensionOf(entryName));
    const bool known = std::find(kCompressed.begin(), kCompressed.end(), extension) != kCompressed.end();
    return known ? Packing::Store : Packing::Deflate;
}

std::string unpack(const PackedContent& packed) {
    if (packed.method == zip::kStored) return packed.data;
    // What this program deflated inflates again; a failure could only be a fault of its own.
    return inflateExactly(packed.data, packed.size).value();
}

}  // namespace

PartDigest digestOf(std::string_view content) {
    return {content.size(), crc32(content)};
}

PartStore::PartStore(std::string archive, const std::string& fileName, const ZipLimits& limits)
    : archive_(std::make_unique<const Archive>(std::move(archive), fileName, limits)) {
    for (const ZipEntry& entry : archive_->reader.entries())
        append(entry.name, &entry);
}

void PartStore::append(const std::string& entryName, Content content) {
    indexes_[partKey(entryName)] = slots_.size();
    slots_.push_back({entryName, std::move(content)});
}

const PartStore::Slot* PartStore::find(std::string_view partName) const {
    const auto found = indexes_.find(partKey(partName));
    return found == indexes_.end() ? nullptr : &slots_[found->second];
}

bool PartStore::has(std::string_view partName) const {
    return find(partName) != nullptr;
}

std::optional<std::string> PartStore::read(std::string_view partName) const {
    const Slot* const slot = find(partName);
    if (slot == nullptr) return std::nullopt;
    if (const auto* entry = std::get_if<const ZipEntry*>(&slot->content))
        return archive_->reader.read(**entry);
    if (const auto* packed = std::get_if<PackedContent>(&slot->content)) return unpack(*packed);
    return std::get<std::string>(slot->content);
}

std::optional<PartDigest> PartStore::digest(std::string_view partName) const {
    const Slot* const slot = find(partName);
    if (slot == nullptr) return std::nullopt;
    if (const auto* entry = std::get_if<const ZipEntry*>(&slot->content)) {
        return PartDigest{(*entry)->size, (*entry)->crc};
    }
    if (const auto* packed = std::get_if<PackedContent>(&slot->content)) {
        return PartDigest{packed->size, packed->crc};
    }
    return digestOf(std::get<std::string>(slot->content));
}

std::vector<std::string> PartStore::names() const {
    std::vector<std::string> names;
    for (const Slot& slot : slots_) {
        const bool shown = !std::holds_alternative<Removed>(slot.content) && !isFolderName(slot.entryName);
        if (shown) names.push_back(partNameOfEntry(slot.entryName));
    }
    return names;
}

void PartStore::put(const std::string& partName, std::string content) {
    const auto found = indexes_.find(partKey(partName));
    if (found == indexes_.end()) {
        append(entryNameOfPart(partName), std::move(content));
    } else {
        slots_[found->second].content = std::move(content);
    }
}

void PartStore::remove(std::string_view partName) {
    const auto found = indexes_.find(partKey(partName));
    if (found == indexes_.end()) return;
    slots_[found->second].content = Removed();
    indexes_.erase(found);
}

void PartStore::save(ByteSink& sink) {
    ZipWriter writer(sink);
    for (Slot& slot : slots_) {
        if (const auto* entry = std::get_if<const ZipEntry*>(&slot.content)) {
            writer.copy(**entry);
            continue;
        }
        if (auto* plain = std::get_if<std::string>(&slot.content)) {
            slot.content = pack(std::move(*plain), packingOf(slot.entryName));
        }
        if (const auto* packed = std::get_if<PackedContent>(&slot.content))
            writer.add(slot.entryName, *packed);
    }
    writer.finish(archive_ ? archive_->reader.comment() : std::string_view());
}

}  // namespace mergeloom::opc
