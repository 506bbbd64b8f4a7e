#include "office/opc/Package.h"

#include "base/Text.h"
#include "office/opc/Codec.h"
#include "office/opc/PartName.h"
#include "office/opc/UnreadableFile.h"
#include "office/opc/ZipRecords.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace mergeloom::opc {

namespace {

std::string unpack(const PackedContent& packed) {
    if (packed.method == zip::kStored) return packed.data;
    // This program has deflated it, so only a fault of its own could make it fail.
    return inflateExactly(packed.data, packed.size).value();
}

constexpr const char* kRelationshipsType = "application/vnd.openxmlformats-package.relationships+xml";

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

Package Package::read(std::string bytes, const std::string& fileName, const ZipLimits& limits) {
    PartStore parts(std::move(bytes), fileName, limits);
    const std::optional<std::string> types = parts.read(kContentTypesName);
    if (!types) {
        raiseUnreadable(fileName,
                        "it is a zip archive without \"[Content_Types].xml\" and so no Office Open "
                        "XML document");
    }
    return {fileName, std::move(parts), ContentTypes(*types, fileName)};
}

Package::Package(std::string fileName, PartStore parts, ContentTypes contentTypes)
    : fileName_(std::move(fileName)), parts_(std::move(parts)), contentTypes_(std::move(contentTypes)) {
    const std::string itself(kPackageItself);
    if (!parts_.has(kContentTypesName)) storeContentTypes();
    relationships_.emplace(itself, loadRelationships(itself));
}

bool Package::hasPart(const std::string& partName) const {
    return parts_.has(partName);
}

std::string Package::readPart(const std::string& partName) const {
    std::optional<std::string> content = parts_.read(partName);
    if (!content) refuseMissing(partName);
    return std::move(*content);
}

PartDigest Package::digestOfPart(const std::string& partName) const {
    const std::optional<PartDigest> digest = parts_.digest(partName);
    if (!digest) refuseMissing(partName);
    return *digest;
}

void Package::refuseMissing(const std::string& partName) const {
    raiseUnreadable(fileName_, "its part " + quoted(partName) + " is missing");
}

std::vector<std::string> Package::partNames() const {
    std::vector<std::string> names = parts_.names();
    std::erase_if(names, [](const std::string& name) {
        return isRelationshipsPart(name) || partKey(name) == partKey(kContentTypesName);
    });
    return names;
}

void Package::writePart(const std::string& partName, std::string bytes) {
    parts_.put(partName, std::move(bytes));
}

void Package::addPart(const std::string& partName, const std::string& contentType, std::string bytes) {
    parts_.put(partName, std::move(bytes));
    if (contentTypes_.of(partName) != contentType) contentTypes_.setOverride(partName, contentType);
}

void Package::removePart(const std::string& partName) {
    parts_.remove(partName);
    parts_.remove(relationshipsPartOf(partName));
    relationships_.erase(partKey(partName));
    contentTypes_.removeOverride(partName);
}

Relationships& Package::relationshipsOf(const std::string& partName) {
    const std::string key = partKey(partName);
    const auto known = relationships_.find(key);
    if (known != relationships_.end()) return known->second;
    return relationships_.emplace(key, loadRelationships(partName)).first->second;
}

std::string Package::relatedPart(const std::string& sourcePart, std::string_view shortName) {
    const Relationships& relationships = relationshipsOf(sourcePart);
    const auto found = relationships.ofOfficeType(shortName);
    std::string partName = found.empty() ? "" : relationships.targetPart(*found.front());
    return hasPart(partName) ? partName : "";
}

Relationships Package::loadRelationships(const std::string& partName) const {
    const std::string source = partName.starts_with('/') ? partName : "/" + partName;
    const std::optional<std::string> xml = parts_.read(relationshipsPartOf(source));
    return xml ? Relationships(source, *xml, fileName_) : Relationships(source);
}

const Relationships& Package::ownRelationships() const {
    return relationships_.at(std::string(kPackageItself));
}

std::string Package::mainPart() const {
    const auto found = ownRelationships().ofOfficeType("officeDocument");
    if (found.empty())
        raiseUnreadable(fileName_, "it has no main part and so is no Office Open XML document");
    std::string partName = ownRelationships().targetPart(*found.front());
    if (!hasPart(partName)) raiseUnreadable(fileName_, "its main part " + quoted(partName) + " is missing");
    return partName;
}

Conformance Package::conformance() const {
    const std::string strict = officeRelationshipType("officeDocument", Conformance::Strict);
    return ownRelationships().hasType(strict) ? Conformance::Strict : Conformance::Transitional;
}

bool Package::isSigned() const {
    if (ownRelationships().hasType(kSignatureOriginType)) return true;
    const std::vector<std::string> names = parts_.names();
    return std::any_of(names.begin(), names.end(),
                       [](const std::string& name) { return partKey(name).starts_with("/_xmlsignatures/"); });
}

void Package::write(ByteSink& sink) {
    storeRelationships();
    if (contentTypes_.isChanged()) storeContentTypes();
    parts_.save(sink);
}

void Package::storeRelationships() {
    for (auto& [key, relationships] : relationships_) {
        if (!relationships.isChanged()) continue;
        const std::string partName = relationshipsPartOf(relationships.sourcePart());
        addPart(partName, kRelationshipsType, relationships.toXml());
        relationships.setUnchanged();
    }
}

void Package::storeContentTypes() {
    parts_.put(std::string(kContentTypesName), contentTypes_.toXml());
    contentTypes_.setUnchanged();
}

}  // namespace mergeloom::opc
