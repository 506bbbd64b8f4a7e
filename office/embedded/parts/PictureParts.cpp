#include "office/embedded/parts/PictureParts.h"

#include "office/opc/PartName.h"

#include <vector>

namespace mergeloom::embedded {

namespace {

std::string stemOf(const std::string& partName) {
    const std::string key = opc::partKey(partName);
    const std::string_view extension = opc::extensionOf(key);
    return key.substr(0, key.size() - extension.size() - (extension.empty() ? 0 : 1));
}

bool isMedia(const std::string& partName) {
    return opc::folderOf(opc::partKey(partName)).ends_with("/media/");
}

}  // namespace

std::string PictureParts::add(const std::string& documentPart, std::string bytes,
                              const opc::PictureFile& picture) {
    return add(documentPart, std::string(opc::folderOf(documentPart)) + "media/", std::move(bytes), picture);
}

std::string PictureParts::add(const std::string& documentPart, const std::string& mediaFolder,
                              std::string bytes, const opc::PictureFile& picture) {
    if (!mediaRead_) readMedia();
    std::string partName = partWith(bytes, picture);
    if (partName.empty()) partName = addPart(mediaFolder, std::move(bytes), picture);
    return relationshipTo(documentPart, partName);
}

ReleasedPicture PictureParts::release(const std::string& documentPart, const std::string& relationshipId) {
    if (!uses_) countUses();
    opc::Relationships& relationships = package_.relationshipsOf(documentPart);
    const opc::Relationship& relationship = *relationships.find(relationshipId);
    const std::string partName = relationships.targetPart(relationship);
    ReleasedPicture released{
        relationshipId, relationship.type, partName, package_.contentTypes().of(partName), {}};
    const std::string key = opc::partKey(partName);
    const bool isLast = (*uses_)[key] == 1 && package_.hasPart(partName);
    if (isLast) released.bytes = package_.readPart(partName);
    --(*uses_)[key];
    relationships.remove(relationshipId);
    // Another relationship may get its id.
    const auto known = relationshipIds_.find({opc::partKey(documentPart), key});
    if (known != relationshipIds_.end() && known->second == relationshipId) relationshipIds_.erase(known);
    if (isLast) package_.removePart(partName);
    return released;
}

void PictureParts::restore(const std::string& documentPart, const ReleasedPicture& released) {
    if (released.bytes) package_.addPart(released.partName, released.contentType, *released.bytes);
    const std::string key = opc::partKey(released.partName);
    if (uses_) ++(*uses_)[key];
    relationshipIds_.emplace(std::pair(opc::partKey(documentPart), key), released.relationshipId);
    package_.relationshipsOf(documentPart)
        .restorePart(released.relationshipId, released.relationshipType, released.partName);
}

void PictureParts::countUses() {
    std::map<std::string, std::int64_t> uses;
    std::vector<std::string> sources = package_.partNames();
    sources.emplace_back(opc::kPackageItself);
    for (const std::string& source : sources) {
        const opc::Relationships& relationships = package_.relationshipsOf(source);
        for (const opc::Relationship& relationship : relationships.all()) {
            if (relationship.mode != opc::TargetMode::Internal) continue;
            ++uses[opc::partKey(relationships.targetPart(relationship))];
        }
    }
    uses_ = std::move(uses);
}

void PictureParts::readMedia() {
    for (const std::string& partName : package_.partNames()) {
        if (isMedia(partName)) remember(partName);
    }
    mediaRead_ = true;
}

void PictureParts::remember(const std::string& partName) {
    parts_.emplace(package_.digestOfPart(partName), partName);
    stems_.insert(stemOf(partName));
}

std::string PictureParts::partWith(const std::string& bytes, const opc::PictureFile& picture) const {
    const auto [first, last] = parts_.equal_range(opc::digestOf(bytes));
    for (auto candidate = first; candidate != last; ++candidate) {
        const std::string& partName = candidate->second;
        // An undone drop may have removed the part.
        const bool fits = package_.hasPart(partName) &&
                          package_.contentTypes().of(partName) == picture.contentType() &&
                          package_.readPart(partName) == bytes;
        if (fits) return partName;
    }
    return {};
}

std::string PictureParts::addPart(const std::string& folder, std::string bytes,
                                  const opc::PictureFile& picture) {
    const std::string& extension = picture.extension();
    std::string stem;
    do {
        stem = folder + "image" + std::to_string(++lastNumber_);
    } while (stems_.contains(opc::partKey(stem)));
    std::string partName = stem + "." + extension;
    package_.contentTypes().ensureDefault(extension, picture.contentType());
    package_.addPart(partName, picture.contentType(), std::move(bytes));
    remember(partName);
    return partName;
}

std::string PictureParts::relationshipTo(const std::string& documentPart, const std::string& partName) {
    readRelationships(documentPart);
    opc::Relationships& relationships = package_.relationshipsOf(documentPart);
    std::string& id = relationshipIds_[{opc::partKey(documentPart), opc::partKey(partName)}];
    if (relationships.find(id) == nullptr) {
        id = relationships.addPart(opc::officeRelationshipType("image", package_.conformance()), partName);
        if (uses_) ++(*uses_)[opc::partKey(partName)];
    }
    return id;
}

void PictureParts::readRelationships(const std::string& documentPart) {
    // Only once: a document with thousands of pictures has thousands of relationships.
    const std::string source = opc::partKey(documentPart);
    if (!sourcesRead_.insert(source).second) return;
    const opc::Relationships& relationships = package_.relationshipsOf(documentPart);
    for (const opc::Relationship* relationship : relationships.ofOfficeType("image")) {
        if (relationship->mode != opc::TargetMode::Internal) continue;
        relationshipIds_.emplace(std::pair(source, opc::partKey(relationships.targetPart(*relationship))),
                                 relationship->id);
    }
}

}  // namespace mergeloom::embedded
