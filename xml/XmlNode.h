#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace pugi {
struct xml_node_struct;
}

namespace mergeloom {

/// A node of the structure document, or none. A light handle: it stays valid as long as its document lives.
/// The members are those of the DOM that the rules speak of, under the DOM's names.
class XmlNode {
  public:
    enum class Type { Element = 1, Text = 3, CData = 4, ProcessingInstruction = 7, Comment = 8, Other = 0 };

    XmlNode() = default;
    explicit XmlNode(pugi::xml_node_struct* node) : node_(node) {}

    explicit operator bool() const { return node_ != nullptr; }
    friend bool operator==(const XmlNode&, const XmlNode&) = default;

    /// The qualified name of an element; "#text" and the like for other nodes; empty for none.
    [[nodiscard]] std::string_view nodeName() const;
    [[nodiscard]] Type nodeType() const;
    [[nodiscard]] XmlNode parentNode() const;

    /// Child nodes of every type, but for text of nothing but white space, which is dropped at load.
    [[nodiscard]] XmlNode firstChild() const;
    [[nodiscard]] XmlNode nextSibling() const;

    /// Attributes.GetNamedItem(name).nodeValue: the name is matched exactly.
    [[nodiscard]] std::optional<std::string> namedAttribute(const char* name) const;
    [[nodiscard]] std::size_t attributeCount() const;
    /// Attributes in the order in which they are written; namespace declarations do not count.
    [[nodiscard]] std::string_view attributeName(std::size_t index) const;
    [[nodiscard]] std::string_view attributeValue(std::size_t index) const;

    /// The first node in document order that an XPath 1.0 expression selects from here, or none. Raises an
    /// AutomationError for an expression that does not parse.
    [[nodiscard]] XmlNode selectSingleNode(const std::string& expression) const;

    [[nodiscard]] pugi::xml_node_struct* handle() const { return node_; }

  private:
    pugi::xml_node_struct* node_ = nullptr;
};

}  // namespace mergeloom
