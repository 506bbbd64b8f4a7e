#include "office/embedded/parts/AddedParts.h"

#include "base/Paths.h"
#include "office/opc/PartName.h"

#include <utility>

namespace mergeloom::embedded {

namespace {

constexpr const char* kContentTypes = "[Content_Types].xml";

}  // namespace

void AddedParts::begin() {
    pictures_.clear();
    bytes_.clear();
    relationships_.clear();
    links_.clear();
    models_.clear();
    hasXml_ = false;
    lastNumber_ = 0;
}

const AddedPicture* AddedParts::add(const std::string& image) {
    const std::string path = find_(image);
    if (path.empty()) return nullptr;
    const auto known = pictures_.find(path);
    if (known != pictures_.end()) return &known->second;
    std::string bytes = files_.read(path);
    opc::PictureFile file = opc::PictureFile::read(bytes, path);
    std::string partName = newPartName(picturePart_, file.extension());
    bytes_.emplace(partName, std::move(bytes));
    return &pictures_.emplace(path, AddedPicture{fileNameOnly(path), std::move(file), std::move(partName)})
                .first->second;
}

std::string AddedParts::newPartName(const std::string& start, const std::string& extension) {
    std::string name;
    do {
        name = start + std::to_string(++lastNumber_) + "." + extension;
    } while (archive_.has(entryNameOf(name)));
    return name;
}

std::string AddedParts::link(const std::string& partName, const AddedPicture& picture) {
    std::string& id = links_[{partName, picture.partName}];
    if (!id.empty()) return id;
    const std::string type = opc::officeRelationshipType("image", archive_.conformance());
    return id = relationshipsOf(partName).addPart(type, picture.partName);
}

opc::Relationships& AddedParts::relationshipsOf(const std::string& partName) {
    const auto there = relationships_.find(partName);
    if (there != relationships_.end()) return there->second;
    const auto model = models_.find(partName);
    const std::string& source = model == models_.end() ? partName : model->second;
    const std::string entry = entryNameOf(opc::relationshipsPartOf(source));
    opc::Relationships read = archive_.has(entry)
                                  ? opc::Relationships(partName, archive_.read(entry), "the template")
                                  : opc::Relationships(partName);
    return relationships_.emplace(partName, std::move(read)).first->second;
}

std::string AddedParts::addLike(const std::string& partName) {
    const std::string start = partName.substr(0, partName.rfind('.')) + "_";
    std::string name = newPartName(start, "xml");
    models_.emplace(name, partName);
    relationshipsOf(name);
    return name;
}

void AddedParts::setContent(const std::string& partName, std::string xml) {
    bytes_[partName] = std::move(xml);
}

std::string AddedParts::linkLike(const std::string& mainPart, const std::string& id,
                                 const std::string& partName) {
    opc::Relationships& relationships = relationshipsOf(mainPart);
    const std::string type = relationships.find(id)->type;
    return relationships.addPart(type, partName);
}

void AddedParts::addXml(const std::string& sourcePart, std::string_view shortType, const std::string& start,
                        std::string xml) {
    const std::string name = newPartName(start, "xml");
    relationshipsOf(sourcePart).addPart(opc::officeRelationshipType(shortType, archive_.conformance()), name);
    bytes_.emplace(name, std::move(xml));
    hasXml_ = true;
}

void AddedParts::addTo(ChangedParts& changed) {
    if (bytes_.empty()) return;
    opc::ContentTypes types(archive_.read(kContentTypes), "the template");
    if (hasXml_) types.ensureDefault("xml", "application/xml");
    for (const auto& [path, picture] : pictures_) {
        if (types.ensureDefault(picture.file.extension(), picture.file.contentType())) continue;
        types.setOverride(picture.partName, picture.file.contentType());
    }
    for (const auto& [name, model] : models_)
        types.setOverride(name, types.of(model));
    for (auto& [name, bytes] : bytes_)
        changed.emplace(entryNameOf(name), std::move(bytes));
    for (const auto& [name, relationships] : relationships_) {
        if (!relationships.all().empty())
            changed.emplace(entryNameOf(opc::relationshipsPartOf(name)), relationships.toXml());
    }
    // A package without relationships of parts may not declare their content type.
    types.ensureDefault("rels", "application/vnd.openxmlformats-package.relationships+xml");
    changed.emplace(kContentTypes, types.toXml());
}

}  // namespace mergeloom::embedded
