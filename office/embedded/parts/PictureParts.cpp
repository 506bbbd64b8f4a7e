#include "office/embedded/parts/PictureParts.h"

#include "office/embedded/package/PartName.h"

#include <vector>

namespace mergeloom::embedded {

namespace {

std::string stemOf(const std::string& partName) {
    const std::string key = partKey(partName);
    const std::string_view extension = extensionOf(key);
    return key.substr(0, key.size() - extension.size() - (extension.empty() ? 0 : 1));
}

bool isMedia(const std::string& partName) {
    return folderOf(partKey(partName)).ends_with("/media/");
}

}  // namespace

std::string PictureParts::add(const std::string& documentPart, std::string bytes,
                              const PictureFile& picture) {
    return add(documentPart, std::string(folderOf(documentPart)) + "media/", std::move(bytes), picture);
}

std::string PictureParts::add(const std::string& documentPart, const std::string& mediaFolder,
                              std::string bytes, const PictureFile& picture) {
    if (!mediaRead_) readMedia();
    std::string partName = partWith(bytes, picture);
    if (partName.empty()) partName = addPart(mediaFolder, std::move(bytes), picture);
    return relationshipTo(documentPart, partName);
}

ReleasedPicture PictureParts::release(const std::string& documentPart, const std::string& relationshipId) {
    if (!uses_) countUses();
    Relationships& relationships = package_.relationshipsOf(documentPart);
    const Relationship& relationship = *relationships.find(relationshipId);
    const std::string partName = relationships.targetPart(relationship);
    ReleasedPicture released{
        relationshipId, relationship.type, partName, package_.contentTypes().of(partName), {}};
    const std::string key = partKey(partName);
    const bool isLast = (*uses_)[key] == 1 && package_.hasPart(partName);
    if (isLast) released.bytes = package_.readPart(partName);
    --(*uses_)[key];
    relationships.remove(relationshipId);
    // Its id may be given to another relationship.
    const auto known = relationshipIds_.find({partKey(documentPart), key});
    if (known != relationshipIds_.end() && known->second == relationshipId) relationshipIds_.erase(known);
    if (isLast) package_.removePart(partName);
    return released;
}

void PictureParts::restore(const std::string& documentPart, const ReleasedPicture& released) {
    if (released.bytes) package_.addPart(released.partName, released.contentType, *released.bytes);
    const std::string key = partKey(released.partName);
    if (uses_) ++(*uses_)[key];
    relationshipIds_.emplace(std::pair(partKey(documentPart), key), released.relationshipId);
    package_.relationshipsOf(documentPart)
        .restorePart(released.relationshipId, released.relationshipType, released.partName);
}

void PictureParts::countUses() {
    std::map<std::string, std::int64_t> uses;
    std::vector<std::string> sources = package_.partNames();
    sources.emplace_back(kPackageItself);
    for (const std::string& source : sources) {
        const Relationships& relationships = package_.relationshipsOf(source);
        for (const Relationship& relationship : relationships.all()) {
            if (relationship.mode != TargetMode::Internal) continue;
            ++uses[partKey(relationships.targetPart(relationship))];
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

std::string PictureParts::partWith(const std::string& bytes, const PictureFile& picture) const {
    const auto [first, last] = parts_.equal_range(digestOf(bytes));
    for (auto candidate = first; candidate != last; ++candidate) {
        const std::string& partName = candidate->second;
        // An undone drop may have taken the part out again.
        const bool fits = package_.hasPart(partName) &&
                          package_.contentTypes().of(partName) == picture.contentType() &&
                          package_.readPart(partName) == bytes;
        if (fits) return partName;
    }
    return {};
}

std::string PictureParts::addPart(const std::string& folder, std::string bytes, const PictureFile& picture) {
    const std::string extension = picture.extension();
    std::string stem;
    do {
        stem = folder + "image" + std::to_string(++lastNumber_);
    } while (stems_.contains(partKey(stem)));
    std::string partName = stem + "." + extension;
    package_.contentTypes().ensureDefault(extension, picture.contentType());
    package_.addPart(partName, picture.contentType(), std::move(bytes));
    remember(partName);
    return partName;
}

std::string PictureParts::relationshipTo(const std::string& documentPart, const std::string& partName) {
    readRelationships(documentPart);
    Relationships& relationships = package_.relationshipsOf(documentPart);
    std::string& id = relationshipIds_[{partKey(documentPart), partKey(partName)}];
    if (relationships.find(id) == nullptr) {
        id = relationships.addPart(officeRelationshipType("image", package_.conformance()), partName);
        if (uses_) ++(*uses_)[partKey(partName)];
    }
    return id;
}

void PictureParts::readRelationships(const std::string& documentPart) {
    // Once only: a document with thousands of pictures has thousands of relationships.
    const std::string source = partKey(documentPart);
    if (!sourcesRead_.insert(source).second) return;
    const Relationships& relationships = package_.relationshipsOf(documentPart);
    for (const Relationship* relationship : relationships.ofOfficeType("image")) {
        if (relationship->mode != TargetMode::Internal) continue;
        relationshipIds_.emplace(std::pair(source, partKey(relationships.targetPart(*relationship))),
                                 relationship->id);
    }
}

}  // namespace mergeloom::embedded
