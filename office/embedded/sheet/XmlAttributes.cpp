#include "office/embedded/sheet/XmlAttributes.h"

#include <algorithm>
#include <charconv>

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kSpaces = " \t\r\n";

bool isSpace(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

}  // namespace

bool XmlAttributes::next() {
    // Plain loops are faster here: a sheet has millions of attributes of a few bytes each, and the scanner
    // has checked them.
    const std::size_t size = text_.size();
    std::size_t offset = end_;
    while (offset < size && isSpace(text_[offset]))
        ++offset;
    if (offset == size) return false;
    begin_ = end_;
    const std::size_t nameBegin = offset;
    while (text_[offset] != '=' && !isSpace(text_[offset]))
        ++offset;
    name_ = text_.substr(nameBegin, offset - nameBegin);
    while (text_[offset] != '"' && text_[offset] != '\'')
        ++offset;
    const char quote = text_[offset];
    const std::size_t valueBegin = ++offset;
    while (text_[offset] != quote)
        ++offset;
    value_ = text_.substr(valueBegin, offset - valueBegin);
    end_ = offset + 1;
    return true;
}

std::optional<std::string_view> findAttribute(std::string_view attributes, std::string_view name) {
    XmlAttributes attribute(attributes);
    while (attribute.next()) {
        if (attribute.name() == name) return attribute.value();
    }
    return {};
}

std::optional<int> parseNumber(std::string_view text) {
    int number = 0;
    const char* end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end) return {};
    return number;
}

std::optional<int> findNumber(std::string_view attributes, std::string_view name) {
    return parseNumber(findAttribute(attributes, name).value_or(""));
}

bool isSet(std::string_view attributes, std::string_view name) {
    const std::optional<std::string_view> value = findAttribute(attributes, name);
    return value == "1" || value == "true";
}

XmlTag::XmlTag(std::string_view tag) {
    const std::size_t close = tag.ends_with("/>") ? tag.size() - 2 : tag.size() - 1;
    const std::size_t nameEnd = std::min(tag.find_first_of(kSpaces), close);
    head_ = tag.substr(0, nameEnd);
    attributes_ = tag.substr(nameEnd, close - nameEnd);
    attributes_.erase(attributes_.find_last_not_of(kSpaces) + 1);
}

void XmlTag::set(std::string_view name, std::string_view value) {
    XmlAttributes attribute(attributes_);
    while (attribute.next()) {
        if (attribute.name() != name) continue;
        const std::size_t size = attribute.value().size();
        attributes_.replace(attribute.end() - 1 - size, size, value);
        return;
    }
    attributes_.append(" ").append(name).append("=\"").append(value).append("\"");
}

void XmlTag::remove(std::string_view name) {
    XmlAttributes attribute(attributes_);
    while (attribute.next()) {
        if (attribute.name() != name) continue;
        attributes_.erase(attribute.begin(), attribute.end() - attribute.begin());
        return;
    }
}

std::string_view XmlTag::prefix() const {
    const std::string_view name = std::string_view(head_).substr(1);
    return name.substr(0, name.find(':') + 1);
}

}  // namespace mergeloom::embedded
