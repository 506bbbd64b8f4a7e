#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// Iterates over the attributes of one tag, as XmlScanner returns them.
class XmlAttributes {
  public:
    explicit XmlAttributes(std::string_view attributes) : text_(attributes) {}

    bool next();
    [[nodiscard]] std::string_view name() const { return name_; }
    /// Returns the value as written, with its entities.
    [[nodiscard]] std::string_view value() const { return value_; }
    /// Returns the offsets of the attribute in the text, including the white space before it.
    [[nodiscard]] std::size_t begin() const { return begin_; }
    [[nodiscard]] std::size_t end() const { return end_; }

  private:
    std::string_view text_;
    std::string_view name_;
    std::string_view value_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
};

/// Returns an attribute's value as written; nothing if it is missing.
std::optional<std::string_view> findAttribute(std::string_view attributes, std::string_view name);
/// Parses a whole number as an attribute contains it. Returns nothing for anything else.
std::optional<int> parseNumber(std::string_view text);
/// Returns an attribute's value as a whole number; nothing if it is not a number.
std::optional<int> findNumber(std::string_view attributes, std::string_view name);
/// Returns the value of an xsd:boolean; false if it is missing.
bool isSet(std::string_view attributes, std::string_view name);

/// A start tag whose attributes can be changed; all others stay as they were written.
class XmlTag {
  public:
    /// Takes a start tag or the tag of an empty element, with its brackets.
    explicit XmlTag(std::string_view tag);

    /// Sets an attribute; the value must not need escaping.
    void set(std::string_view name, std::string_view value);
    void remove(std::string_view name);

    [[nodiscard]] std::string_view attributes() const { return attributes_; }
    /// Returns the prefix of the element's name with its colon; empty if it has none.
    [[nodiscard]] std::string_view prefix() const;
    [[nodiscard]] std::string startTag() const { return head_ + attributes_ + ">"; }
    [[nodiscard]] std::string emptyTag() const { return head_ + attributes_ + "/>"; }
    [[nodiscard]] std::string endTag() const { return "</" + head_.substr(1) + ">"; }

  private:
    std::string head_;  // "<x:row"
    std::string attributes_;
};

}  // namespace mergeloom::embedded
