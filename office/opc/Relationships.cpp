#include "office/opc/Relationships.h"

#include "office/opc/PartName.h"
#include "office/opc/UnreadableFile.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <pugixml.hpp>
#include <utility>

namespace mergeloom::opc {

namespace {

constexpr std::string_view kTransitionalTypes =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
constexpr std::string_view kStrictTypes = "http://purl.oclc.org/ooxml/officeDocument/relationships/";

constexpr const char* kNoRelationships =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
    "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"/>";

bool isRelationship(const pugi::xml_node& node) {
    return localName(node) == "Relationship";
}

Relationship readRelationship(const pugi::xml_node& node) {
    const bool external = std::string_view(node.attribute("TargetMode").value()) == "External";
    return {node.attribute("Id").value(), node.attribute("Type").value(), node.attribute("Target").value(),
            external ? TargetMode::External : TargetMode::Internal};
}

}  // namespace

std::string officeRelationshipType(std::string_view shortName, Conformance conformance) {
    const std::string_view base = conformance == Conformance::Strict ? kStrictTypes : kTransitionalTypes;
    return std::string(base).append(shortName);
}

std::string_view officeShortName(std::string_view type) {
    for (const std::string_view base : {kTransitionalTypes, kStrictTypes}) {
        if (type.starts_with(base)) return type.substr(base.size());
    }
    return {};
}

Relationships::Relationships(std::string sourcePart)
    : Relationships(std::move(sourcePart), kNoRelationships, "") {}

Relationships::Relationships(std::string sourcePart, std::string_view xml, const std::string& fileName)
    : sourcePart_(std::move(sourcePart)), document_(std::make_unique<pugi::xml_document>()) {
    parsePackageXml(*document_, xml, "Relationships", relationshipsPartOf(sourcePart_), fileName);
    readAll(fileName);
}

Relationships::Relationships(Relationships&&) noexcept = default;
Relationships& Relationships::operator=(Relationships&&) noexcept = default;
Relationships::~Relationships() = default;

void Relationships::readAll(const std::string& fileName) {
    const std::string partName = relationshipsPartOf(sourcePart_);
    for (const pugi::xml_node& node : document_->document_element()) {
        if (!isRelationship(node)) continue;
        Relationship relationship = readRelationship(node);
        if (relationship.id.empty() || relationship.type.empty() || !node.attribute("Target")) {
            raiseUnreadable(fileName, "its part " + quoted(partName) + " has an incomplete relationship");
        }
        if (!indexes_.emplace(relationship.id, all_.size()).second) {
            raiseUnreadable(fileName, "its part " + quoted(partName) + " has two relationships of the id " +
                                          quoted(relationship.id));
        }
        all_.push_back(std::move(relationship));
    }
}

const Relationship* Relationships::find(std::string_view id) const {
    const auto found = indexes_.find(std::string(id));
    return found == indexes_.end() ? nullptr : &all_[found->second];
}

std::vector<const Relationship*> Relationships::ofOfficeType(std::string_view shortName) const {
    std::vector<const Relationship*> found;
    for (const Relationship& relationship : all_) {
        if (officeShortName(relationship.type) == shortName) found.push_back(&relationship);
    }
    return found;
}

bool Relationships::hasType(std::string_view type) const {
    return std::any_of(all_.begin(), all_.end(), [&](const Relationship& one) { return one.type == type; });
}

std::string Relationships::targetPart(const Relationship& relationship) const {
    return resolveTarget(sourcePart_, relationship.target);
}

std::string Relationships::addPart(const std::string& type, const std::string& partName) {
    return add({freeId(), type, targetFrom(sourcePart_, partName), TargetMode::Internal});
}

std::string Relationships::addExternal(const std::string& type, const std::string& target) {
    return add({freeId(), type, target, TargetMode::External});
}

void Relationships::restorePart(const std::string& id, const std::string& type, const std::string& partName) {
    add({id, type, targetFrom(sourcePart_, partName), TargetMode::Internal});
}

std::string Relationships::freeId() {
    std::string id;
    do {
        id = "rId" + std::to_string(++lastNumber_);
    } while (indexes_.contains(id));
    return id;
}

std::string Relationships::add(Relationship relationship) {
    pugi::xml_node node = appendLike(document_->document_element(), "Relationship");
    node.append_attribute("Id").set_value(relationship.id.c_str());
    node.append_attribute("Type").set_value(relationship.type.c_str());
    node.append_attribute("Target").set_value(relationship.target.c_str());
    if (relationship.mode == TargetMode::External) node.append_attribute("TargetMode") = "External";
    indexes_[relationship.id] = all_.size();
    all_.push_back(std::move(relationship));
    changed_ = true;
    return all_.back().id;
}

bool Relationships::remove(std::string_view id) {
    const Relationship* const found = find(id);
    if (found == nullptr) return false;
    const auto hasId = [&](const pugi::xml_node& node) {
        return isRelationship(node) && id == node.attribute("Id").value();
    };
    pugi::xml_node root = document_->document_element();
    root.remove_child(root.find_child(hasId));
    indexes_.erase(std::string(id));
    for (auto& [other, index] : indexes_) {
        if (&all_[index] > found) --index;
    }
    all_.erase(all_.begin() + (found - all_.data()));
    changed_ = true;
    return true;
}

std::string Relationships::toXml() const {
    return packageXmlText(*document_);
}

}  // namespace mergeloom::opc
