#include "office/embedded/sheet/TreeEdit.h"

#include <sstream>

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kTransitionalRelationships =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr std::string_view kStrictRelationships = "http://purl.oclc.org/ooxml/officeDocument/relationships";
constexpr std::string_view kNamespaceDeclaration = "xmlns:";
constexpr std::string_view kId = "id";

/// Returns the URI that a prefix means at an element.
std::string_view namespaceOf(std::string_view prefix, pugi::xml_node element) {
    const std::string declaration = std::string(kNamespaceDeclaration).append(prefix);
    for (; element; element = element.parent()) {
        if (const pugi::xml_attribute found = element.attribute(declaration.c_str())) return found.value();
    }
    return {};
}

bool isRelationshipId(pugi::xml_attribute attribute, pugi::xml_node element) {
    const std::string_view name = attribute.name();
    const std::size_t colon = name.find(':');
    if (colon == std::string_view::npos || name.substr(colon + 1) != kId) return false;
    const std::string_view uri = namespaceOf(name.substr(0, colon), element);
    return uri == kTransitionalRelationships || uri == kStrictRelationships;
}

bool isText(pugi::xml_node node) {
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

void writeText(pugi::xml_node element, const std::string& text) {
    for (pugi::xml_node child = element.first_child(); child;) {
        const pugi::xml_node next = child.next_sibling();
        if (isText(child)) element.remove_child(child);
        child = next;
    }
    element.append_child(pugi::node_pcdata).set_value(text.c_str());
}

}  // namespace

std::string qualifiedName(pugi::xml_node element, std::string_view localName) {
    const std::string_view name = element.name();
    return std::string(name.substr(0, name.find(':') + 1)).append(localName);
}

pugi::xml_node childNamed(pugi::xml_node parent, std::string_view localName) {
    return parent.child(qualifiedName(parent, localName).c_str());
}

std::vector<pugi::xml_node> childrenNamed(pugi::xml_node parent, std::string_view localName) {
    const std::string name = qualifiedName(parent, localName);
    const auto found = parent.children(name.c_str());
    return {found.begin(), found.end()};
}

pugi::xml_node nextElement(pugi::xml_node node) {
    do {
        node = node.next_sibling();
    } while (node && node.type() != pugi::node_element);
    return node;
}

std::string textOf(pugi::xml_node element) {
    std::string text;
    for (const pugi::xml_node child : element.children()) {
        if (isText(child)) text += child.value();
    }
    return text;
}

std::string relationshipId(pugi::xml_node element) {
    for (const pugi::xml_attribute attribute : element.attributes()) {
        if (isRelationshipId(attribute, element)) return attribute.value();
    }
    return {};
}

void setAttribute(pugi::xml_node element, const char* name, const std::string& value, PartState& state) {
    pugi::xml_attribute attribute = element.attribute(name);
    const bool isNew = !attribute;
    const std::string former = attribute.value();
    if (isNew) attribute = element.append_attribute(name);
    attribute.set_value(value.c_str());
    state.change([element, attribute, former, isNew]() mutable {
        if (isNew) {
            element.remove_attribute(attribute);
        } else {
            attribute.set_value(former.c_str());
        }
    });
}

void setText(pugi::xml_node element, const std::string& text, PartState& state) {
    const std::string former = textOf(element);
    writeText(element, text);
    state.change([element, former] { writeText(element, former); });
}

void recordInsertion(pugi::xml_node node, const opc::XmlPart& part, PartState& state) {
    state.change([node, detachedNodes = part.detachedNodes()]() mutable { detachedNodes.append_move(node); });
}

SheetSection::SheetSection(const SheetPart& sheet, std::string_view localName) {
    const std::string xml = sheet.section(localName);
    constexpr unsigned kParseFlags = pugi::parse_full | pugi::parse_ws_pcdata;
    tree_.load_buffer(xml.data(), xml.size(), kParseFlags, pugi::encoding_utf8);
}

std::string SheetSection::toXml() const {
    std::ostringstream xml;
    root().print(xml, "", pugi::format_raw, pugi::encoding_utf8);
    return xml.str();
}

}  // namespace mergeloom::embedded
