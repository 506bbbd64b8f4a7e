#include "xml/XmlNode.h"

#include "base/AutomationError.h"
#include "base/Text.h"

#include <charconv>
#include <iterator>
#include <pugixml.hpp>

namespace mergeloom {

namespace {

constexpr ErrorNumber kInvalidArgument = 5;

pugi::xml_attribute attributeAt(pugi::xml_node_struct* node, std::size_t index) {
    const auto attributes = pugi::xml_node(node).attributes();
    return *std::next(attributes.begin(), static_cast<std::ptrdiff_t>(index));
}

}  // namespace

std::string_view XmlNode::nodeName() const {
    const pugi::xml_node node(node_);
    switch (node.type()) {
        case pugi::node_document:
            return "#document";
        case pugi::node_pcdata:
            return "#text";
        case pugi::node_cdata:
            return "#cdata-section";
        case pugi::node_comment:
            return "#comment";
        default:
            return node.name();
    }
}

XmlNode::Type XmlNode::nodeType() const {
    switch (pugi::xml_node(node_).type()) {
        case pugi::node_element:
            return Type::Element;
        case pugi::node_pcdata:
            return Type::Text;
        case pugi::node_cdata:
            return Type::CData;
        case pugi::node_pi:
            return Type::ProcessingInstruction;
        case pugi::node_comment:
            return Type::Comment;
        default:
            return Type::Other;
    }
}

XmlNode XmlNode::parentNode() const {
    return XmlNode(pugi::xml_node(node_).parent().internal_object());
}

XmlNode XmlNode::firstChild() const {
    return XmlNode(pugi::xml_node(node_).first_child().internal_object());
}

XmlNode XmlNode::nextSibling() const {
    return XmlNode(pugi::xml_node(node_).next_sibling().internal_object());
}

std::optional<std::string_view> XmlNode::namedAttribute(const char* name) const {
    const pugi::xml_attribute attribute = pugi::xml_node(node_).attribute(name);
    if (!attribute) return std::nullopt;
    return attribute.value();
}

std::string_view XmlNode::attributeText(const char* name) const {
    return pugi::xml_node(node_).attribute(name).value();
}

std::size_t XmlNode::attributeCount() const {
    const auto attributes = pugi::xml_node(node_).attributes();
    return static_cast<std::size_t>(std::distance(attributes.begin(), attributes.end()));
}

std::string_view XmlNode::attributeName(std::size_t index) const {
    return attributeAt(node_, index).name();
}

std::string_view XmlNode::attributeValue(std::size_t index) const {
    return attributeAt(node_, index).value();
}

XmlNode XmlNode::selectSingleNode(const std::string& expression) const {
    try {
        return XmlNode(pugi::xml_node(node_).select_node(expression.c_str()).node().internal_object());
    } catch (const pugi::xpath_exception& error) {
        throw AutomationError(kInvalidArgument,
                              "The search expression " + expression + " is wrong: " + error.what() + ".");
    }
}

bool XmlNode::mayHaveBelow(std::string_view name) const {
    const auto isNamed = [&](const pugi::xml_node& node) {
        return equalsIgnoringAsciiCase(localName(node.name()), name);
    };
    return !pugi::xml_node(node_).find_node(isNamed).empty();
}

int XmlNodeCollection::Add(XmlNode element) {
    elements_.push_back(element);
    return Count();
}

XmlNode XmlNodeCollection::numbered(int number) const {
    const bool held = number > 0 && number <= Count();
    return held ? elements_[static_cast<std::size_t>(number) - 1] : XmlNode();
}

XmlNode XmlNodeCollection::Item(std::string_view key) const {
    if (key.empty() || key.front() == '0') return XmlNode();
    const char* const last = key.data() + key.size() - 1;
    if (*last != 'k' && *last != 'K') return XmlNode();

    std::size_t number = 0;
    const auto [end, error] = std::from_chars(key.data(), last, number);
    const bool held = error == std::errc() && end == last && number <= elements_.size();
    return held ? elements_[number - 1] : XmlNode();
}

}  // namespace mergeloom
