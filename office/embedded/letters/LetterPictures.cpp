#include "office/embedded/letters/LetterPictures.h"

#include "base/Paths.h"
#include "office/opc/PartName.h"

#include <utility>

namespace mergeloom::embedded {

namespace {

constexpr const char* kContentTypes = "[Content_Types].xml";

}  // namespace

void LetterPictures::begin() {
    pictures_.clear();
    bytes_.clear();
    relationships_.clear();
    links_.clear();
    lastNumber_ = 0;
}

const LetterPicture* LetterPictures::add(const std::string& image) {
    const std::string path = find_(image);
    if (path.empty()) return nullptr;
    const auto known = pictures_.find(path);
    if (known != pictures_.end()) return &known->second;
    std::string bytes = files_.read(path);
    opc::PictureFile file = opc::PictureFile::read(bytes, path);
    std::string partName = newPartName(file.extension());
    bytes_.emplace(partName, std::move(bytes));
    return &pictures_.emplace(path, LetterPicture{fileNameOnly(path), std::move(file), std::move(partName)})
                .first->second;
}

std::string LetterPictures::newPartName(const std::string& extension) {
    std::string name;
    do {
        name = "/word/media/letter" + std::to_string(++lastNumber_) + "." + extension;
    } while (archive_.has(entryNameOf(name)));
    return name;
}

std::string LetterPictures::link(const std::string& partName, const LetterPicture& picture) {
    std::string& id = links_[{partName, picture.partName}];
    if (!id.empty()) return id;
    auto relationships = relationships_.find(partName);
    if (relationships == relationships_.end()) {
        const std::string entry = entryNameOf(opc::relationshipsPartOf(partName));
        opc::Relationships read = archive_.has(entry)
                                      ? opc::Relationships(partName, archive_.read(entry), "the template")
                                      : opc::Relationships(partName);
        relationships = relationships_.emplace(partName, std::move(read)).first;
    }
    const std::string type = opc::officeRelationshipType("image", archive_.conformance());
    return id = relationships->second.addPart(type, picture.partName);
}

void LetterPictures::addTo(ChangedParts& changed) {
    if (pictures_.empty()) return;
    opc::ContentTypes types(archive_.read(kContentTypes), "the template");
    for (const auto& [path, picture] : pictures_) {
        if (!types.ensureDefault(picture.file.extension(), picture.file.contentType())) {
            types.setOverride(picture.partName, picture.file.contentType());
        }
        changed.emplace(entryNameOf(picture.partName), std::move(bytes_.at(picture.partName)));
    }
    for (const auto& [partName, relationships] : relationships_)
        changed.emplace(entryNameOf(opc::relationshipsPartOf(partName)), relationships.toXml());
    // A part without relationships so far has no content type for them either.
    types.ensureDefault("rels", "application/vnd.openxmlformats-package.relationships+xml");
    changed.emplace(kContentTypes, types.toXml());
}

}  // namespace mergeloom::embedded
