#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// The attributes of one tag, one after the other, as XmlScanner answers them.
class XmlAttributes {
  public:
    explicit XmlAttributes(std::string_view attributes) : text_(attributes) {}

    bool next();
    [[nodiscard]] std::string_view name() const { return name_; }
    /// As written; entities stand in it.
    [[nodiscard]] std::string_view value() const { return value_; }
    /// Where the attribute stands in the text, the white space before it included.
    [[nodiscard]] std::size_t begin() const { return begin_; }
    [[nodiscard]] std::size_t end() const { return end_; }

  private:
    std::string_view text_;
    std::string_view name_;
    std::string_view value_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
};

/// An attribute's value as written; nothing when it is not there.
std::optional<std::string_view> findAttribute(std::string_view attributes, std::string_view name);
/// A whole number as an attribute writes it; nothing for anything else.
std::optional<int> parseNumber(std::string_view text);
/// An attribute's value as a whole number; nothing when it is none.
std::optional<int> findNumber(std::string_view attributes, std::string_view name);
/// An xsd:boolean; false when it is not there.
bool isSet(std::string_view attributes, std::string_view name);

/// A start tag whose attributes can be changed; what is not changed stays as it was written.
class XmlTag {
  public:
    /// A start tag or one of an empty element, with its brackets.
    explicit XmlTag(std::string_view tag);

    /// The value must need no escaping.
    void set(std::string_view name, std::string_view value);
    void remove(std::string_view name);

    [[nodiscard]] std::string_view attributes() const { return attributes_; }
    /// Of the element's name, with its colon; empty when it has none.
    [[nodiscard]] std::string_view prefix() const;
    [[nodiscard]] std::string startTag() const { return head_ + attributes_ + ">"; }
    [[nodiscard]] std::string emptyTag() const { return head_ + attributes_ + "/>"; }
    [[nodiscard]] std::string endTag() const { return "</" + head_.substr(1) + ">"; }

  private:
    std::string head_;  // "<x:row"
    std::string attributes_;
};

}  // namespace mergeloom::embedded
