#include "office/opc/Package.h"

#include "office/opc/PartName.h"
#include "office/opc/UnreadableFile.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace mergeloom::opc {

namespace {

constexpr const char* kRelationshipsType = "application/vnd.openxmlformats-package.relationships+xml";

}  // namespace

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
