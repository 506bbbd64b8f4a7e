#include "office/opc/ContentTypes.h"

#include "base/Text.h"
#include "office/opc/PartName.h"
#include "office/opc/UnreadableFile.h"
#include "office/opc/XmlPart.h"

#include <pugixml.hpp>

namespace mergeloom::opc {

namespace {

constexpr const char* kNoContentTypes =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
    "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
    "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
    "<Default Extension=\"xml\" ContentType=\"application/xml\"/></Types>";

pugi::xml_node findOverride(const pugi::xml_document& document, const std::string& key) {
    const auto hasKey = [&](const pugi::xml_node& node) {
        return localName(node) == "Override" && partKey(node.attribute("PartName").value()) == key;
    };
    return document.document_element().find_child(hasKey);
}

}  // namespace

ContentTypes::ContentTypes() : ContentTypes(kNoContentTypes, "") {
    changed_ = true;
}

ContentTypes::ContentTypes(std::string_view xml, const std::string& fileName)
    : document_(std::make_unique<pugi::xml_document>()) {
    parsePackageXml(*document_, xml, "Types", std::string(kContentTypesName), fileName);
    readTypes(fileName);
}

ContentTypes::ContentTypes(ContentTypes&&) noexcept = default;
ContentTypes& ContentTypes::operator=(ContentTypes&&) noexcept = default;
ContentTypes::~ContentTypes() = default;

void ContentTypes::readTypes(const std::string& fileName) {
    for (const pugi::xml_node& node : document_->document_element()) {
        const bool isOverride = localName(node) == "Override";
        if (!isOverride && localName(node) != "Default") continue;
        const std::string name = node.attribute(isOverride ? "PartName" : "Extension").value();
        const std::string type = node.attribute("ContentType").value();
        if (name.empty() || type.empty()) {
            raiseUnreadable(fileName, "its part \"/[Content_Types].xml\" has an incomplete element " +
                                          quoted(node.name()));
        }
        const bool isNew = isOverride ? overrides_.emplace(partKey(name), type).second
                                      : defaults_.emplace(foldCase(name), type).second;
        if (!isNew) {
            raiseUnreadable(fileName, "its part \"/[Content_Types].xml\" names " + quoted(name) + " twice");
        }
    }
}

std::string ContentTypes::of(std::string_view partName) const {
    const auto own = overrides_.find(partKey(partName));
    if (own != overrides_.end()) return own->second;
    const auto byExtension = defaults_.find(foldCase(extensionOf(partName)));
    return byExtension == defaults_.end() ? std::string() : byExtension->second;
}

void ContentTypes::setOverride(const std::string& partName, const std::string& contentType) {
    const std::string key = partKey(partName);
    const auto known = overrides_.find(key);
    if (known != overrides_.end() && known->second == contentType) return;
    pugi::xml_node node;
    if (known != overrides_.end()) {
        node = findOverride(*document_, key);
    } else {
        node = appendLike(document_->document_element(), "Override");
        node.append_attribute("PartName").set_value(partName.c_str());
        node.append_attribute("ContentType");
    }
    node.attribute("ContentType").set_value(contentType.c_str());
    overrides_[key] = contentType;
    changed_ = true;
}

void ContentTypes::removeOverride(const std::string& partName) {
    const std::string key = partKey(partName);
    if (overrides_.erase(key) == 0) return;
    document_->document_element().remove_child(findOverride(*document_, key));
    changed_ = true;
}

bool ContentTypes::ensureDefault(const std::string& extension, const std::string& contentType) {
    const std::string key = foldCase(extension);
    const auto known = defaults_.find(key);
    if (known != defaults_.end()) return known->second == contentType;
    // The schema allows any order; programs write the extensions first.
    pugi::xml_node root = document_->document_element();
    pugi::xml_node node = root.prepend_move(appendLike(root, "Default"));
    node.append_attribute("Extension").set_value(extension.c_str());
    node.append_attribute("ContentType").set_value(contentType.c_str());
    defaults_[key] = contentType;
    changed_ = true;
    return true;
}

std::string ContentTypes::toXml() const {
    return packageXmlText(*document_);
}

}  // namespace mergeloom::opc
