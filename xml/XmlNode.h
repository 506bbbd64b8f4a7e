#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pugi {
struct xml_node_struct;
}

namespace mergeloom {

/// Returns a name without its namespace prefix.
inline std::string_view localName(std::string_view qualifiedName) {
    return qualifiedName.substr(qualifiedName.find(':') + 1);
}

/// A node of the structure document, or null. A light handle that stays valid as long as its document lives.
/// The members are those of the DOM that the program uses, under the DOM's names.
class XmlNode {
  public:
    enum class Type { Element = 1, Text = 3, CData = 4, ProcessingInstruction = 7, Comment = 8, Other = 0 };

    XmlNode() = default;
    explicit XmlNode(pugi::xml_node_struct* node) : node_(node) {}

    explicit operator bool() const { return node_ != nullptr; }
    friend bool operator==(const XmlNode&, const XmlNode&) = default;

    /// Returns the qualified name of an element; "#text" and the like for other nodes; empty for null.
    [[nodiscard]] std::string_view nodeName() const;
    [[nodiscard]] Type nodeType() const;
    [[nodiscard]] XmlNode parentNode() const;

    /// Return child nodes of every type. Text of only white space was dropped at load.
    [[nodiscard]] XmlNode firstChild() const;
    [[nodiscard]] XmlNode nextSibling() const;

    /// Attributes.GetNamedItem(name).nodeValue: the name is matched exactly. The text is the document's.
    [[nodiscard]] std::optional<std::string_view> namedAttribute(const char* name) const;
    /// Returns the value of an attribute in the same way; empty when there is no such attribute.
    [[nodiscard]] std::string_view attributeText(const char* name) const;
    [[nodiscard]] std::size_t attributeCount() const;
    /// Return the attributes in the order in which they are written, without namespace declarations.
    [[nodiscard]] std::string_view attributeName(std::size_t index) const;
    [[nodiscard]] std::string_view attributeValue(std::size_t index) const;

    /// Returns the first node in document order that an XPath 1.0 expression selects from here, or null.
    /// Raises an AutomationError for an expression that does not parse.
    [[nodiscard]] XmlNode selectSingleNode(const std::string& expression) const;

    /// Returns false if no element below has a local name, regardless of ASCII case: then a search for it,
    /// which costs several times as much, finds none.
    [[nodiscard]] bool mayHaveBelow(std::string_view name) const;

    [[nodiscard]] pugi::xml_node_struct* handle() const { return node_; }

  private:
    pugi::xml_node_struct* node_ = nullptr;
};

/// Maps the keys of tree nodes to elements of the structure document. The keys are consecutive numbers
/// followed by "k", from "1k" on.
class XmlNodeCollection {
  public:
    /// Adds an element under the next key and returns that key's number.
    int Add(XmlNode element);
    /// Returns the element of a key, regardless of letter case; null for an unknown key.
    [[nodiscard]] XmlNode Item(std::string_view key) const;
    /// Returns the element of the key with a number; null for an unknown number.
    [[nodiscard]] XmlNode numbered(int number) const;
    [[nodiscard]] int Count() const { return static_cast<int>(elements_.size()); }

  private:
    std::vector<XmlNode> elements_;
};

}  // namespace mergeloom
