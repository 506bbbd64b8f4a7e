#include "office/embedded/letters/OmittedContent.h"

#include "office/opc/XmlPart.h"

#include <pugixml.hpp>

namespace mergeloom::embedded {

namespace {

constexpr const char* kNamespace = "urn:mergeloom:omitted-content";

OmittedContent contentOf(const std::string& xml) {
    pugi::xml_document document;
    OmittedContent content;
    if (!document.load_buffer(xml.data(), xml.size(), pugi::parse_default | pugi::parse_ws_pcdata))
        return content;
    for (const pugi::xml_node node : document.document_element().children())
        content.emplace(node.attribute("number").as_ullong(), node.text().get());
    return content;
}

/// Removes a custom part with the part of its properties, which Word adds.
void removeCustomPart(opc::Package& package, const std::string& part) {
    const opc::Relationships& relationships = package.relationshipsOf(part);
    std::vector<std::string> properties;
    for (const opc::Relationship& relationship : relationships.all()) {
        const bool isInternal = relationship.mode == opc::TargetMode::Internal;
        if (isInternal) properties.push_back(relationships.targetPart(relationship));
    }
    for (const std::string& target : properties) {
        if (package.hasPart(target)) package.removePart(target);
    }
    package.removePart(part);
}

}  // namespace

std::string omittedPartXml(const std::vector<std::string>& omitted) {
    pugi::xml_document document;
    pugi::xml_node root = document.append_child("omitted");
    root.append_attribute("xmlns").set_value(kNamespace);
    for (std::size_t position = 0; position < omitted.size(); ++position) {
        pugi::xml_node content = root.append_child("content");
        content.append_attribute("number").set_value(std::to_string(position + 1).c_str());
        content.text().set(omitted[position].c_str());
    }
    return opc::packageXmlText(document);
}

OmittedContent takeOmittedContent(opc::Package& package) {
    opc::Relationships& relationships = package.relationshipsOf(package.mainPart());
    for (const opc::Relationship* relationship : relationships.ofOfficeType("customXml")) {
        const std::string part = relationships.targetPart(*relationship);
        const std::string xml = package.hasPart(part) ? package.readPart(part) : std::string();
        if (xml.find(kNamespace) == std::string::npos) continue;
        OmittedContent content = contentOf(xml);
        const std::string id = relationship->id;
        removeCustomPart(package, part);
        relationships.remove(id);
        return content;
    }
    return {};
}

}  // namespace mergeloom::embedded
