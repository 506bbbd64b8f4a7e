#include "office/embedded/sheet/XmlAttributes.h"

#include <algorithm>
#include <charconv>

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kSpaces = " \t\r\n";

}  // namespace

bool XmlAttributes::next() {
    const std::size_t nameBegin = text_.find_first_not_of(kSpaces, end_);
    if (nameBegin == std::string_view::npos) return false;
    const std::size_t equals = text_.find('=', nameBegin);
    const std::size_t open = text_.find_first_of("\"'", equals);
    const std::size_t close = text_.find(text_[open], open + 1);
    const std::string_view name = text_.substr(nameBegin, equals - nameBegin);
    name_ = name.substr(0, name.find_last_not_of(kSpaces) + 1);
    value_ = text_.substr(open + 1, close - open - 1);
    begin_ = end_;
    end_ = close + 1;
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
