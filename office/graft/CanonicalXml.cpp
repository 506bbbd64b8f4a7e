#include "office/graft/CanonicalXml.h"

#include <algorithm>
#include <vector>

namespace mergeloom::graft {

namespace {

bool matches(std::string_view pattern, std::string_view name) {
    if (pattern == "*") return true;
    if (pattern.ends_with('*')) return name.starts_with(pattern.substr(0, pattern.size() - 1));
    return pattern == name;
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// Returns true if white space in an element is text of the document.
bool keepsBlanks(pugi::xml_node element) {
    const std::string_view name = element.name();
    return name.ends_with(":t") || name == "t" || name.ends_with("nstrText") || name.ends_with(":delText");
}

bool isRelationship(std::string_view attribute) {
    return attribute.starts_with("r:") || attribute == "o:relid";
}

}  // namespace

std::string CanonicalXml::of(pugi::xml_node node) const {
    std::string text;
    append(node, text);
    return text;
}

std::string CanonicalXml::ofChildren(pugi::xml_node node) const {
    std::string text;
    for (const pugi::xml_node child : node.children())
        append(child, text);
    return text;
}

bool CanonicalXml::isVolatile(pugi::xml_node element) const {
    return std::ranges::any_of(rules_.volatileNames, [&](const VolatileName& name) {
        return name.attribute.empty() && matches(name.element, element.name());
    });
}

void CanonicalXml::append(pugi::xml_node node, std::string& text) const {
    if (node.type() == pugi::node_element) return appendElement(node, text);
    if (node.type() != pugi::node_pcdata && node.type() != pugi::node_cdata) return;
    if (!isBlank(node.value()) || keepsBlanks(node.parent())) text += node.value();
}

void CanonicalXml::appendElement(pugi::xml_node element, std::string& text) const {
    if (isVolatile(element)) return;
    const std::string attributes = attributesOf(element);
    const std::string content = ofChildren(element);
    const std::string_view name = element.name();
    const bool isVoid = attributes.empty() && content.empty() &&
                        std::ranges::find(rules_.voidWhenEmpty, name) != rules_.voidWhenEmpty.end();
    if (isVoid) return;
    text.append("<").append(name).append(attributes).append(">").append(content).append("</>");
}

std::string CanonicalXml::attributesOf(pugi::xml_node element) const {
    std::vector<std::string> all;
    for (const pugi::xml_attribute attribute : element.attributes()) {
        const std::string_view name = attribute.name();
        const bool isLeftOut = name.starts_with("xmlns") || name == "xml:space" ||
                               std::ranges::any_of(rules_.volatileNames, [&](const VolatileName& rule) {
                                   return !rule.attribute.empty() && matches(rule.element, element.name()) &&
                                          matches(rule.attribute, name);
                               });
        if (isLeftOut) continue;
        const std::string value =
            isRelationship(name) && target_ ? target_(attribute.value()) : attribute.value();
        all.push_back(" " + std::string(name) + "=\"" + value + "\"");
    }
    std::ranges::sort(all);
    std::string text;
    for (const std::string& attribute : all)
        text += attribute;
    return text;
}

const CanonicalXml& plainXml() {
    static const CanonicalXml kPlain{{}, {}};
    return kPlain;
}

}  // namespace mergeloom::graft
