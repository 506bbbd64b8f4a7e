#include "xml/modMSXMLHelper.h"

#include "base/ErrorHandler.h"
#include "base/Text.h"

#include <charconv>

namespace mergeloom {

namespace {

constexpr const char* kModule = "modMSXMLHelper";

/// Compares a local name, its ASCII capitals folded, with a name in small letters. All capitals of the name
/// become small, so that an element with other capitals than ASCII is not found under any spelling.
std::string nameTest(std::string_view name) {
    return "[translate(local-name(), 'ABCDEFGHIJKLMNOPQRSTUVWXYZ', 'abcdefghijklmnopqrstuvwxyz') = '" +
           foldCase(name) + "']";
}

/// XPath 1.0 has no way to write both kinds of quote in one text, so such a value loses its double quotes.
std::string quoted(std::string_view value) {
    if (value.find('\'') == std::string_view::npos) return "'" + std::string(value) + "'";
    return '"' + replaceAll(value, "\"", "") + '"';
}

std::string searchExpression(std::string_view elementName, std::string_view attributeName,
                             std::string_view attributeValue, bool childrenOnly) {
    std::string expression = (childrenOnly ? "./*" : ".//*") + nameTest(elementName);
    if (attributeName.empty()) return expression;
    expression += "[@*" + nameTest(attributeName);
    if (!attributeValue.empty()) expression += " = " + quoted(attributeValue);
    return expression + "]";
}

}  // namespace

XmlNode SearchNodeNotCaseSensitive(ErrorHandler& errors, XmlNode contextNode, std::string_view elementName,
                                   std::string_view attributeName, std::string_view attributeValue,
                                   bool childrenOnly) {
    XmlNode found;
    trap(errors, kModule, "SearchNodeNotCaseSensitive", [&] {
        if (!contextNode) return;
        found = contextNode.selectSingleNode(
            searchExpression(elementName, attributeName, attributeValue, childrenOnly));
    });
    return found;
}

std::string GetControlCaption(ErrorHandler& errors, XmlNode node) {
    std::string caption;
    trap(errors, kModule, "GetControlCaption", [&] {
        const auto written = node.namedAttribute(AttributeName(Attribute::Caption).c_str());
        caption = written ? StripAmpersands(*written) : GetAttributeValue(node, Attribute::Name);
    });
    return caption;
}

std::string GetAttributeValue(XmlNode node, const std::string& attributeName) {
    return std::string(node.attributeText(attributeName.c_str()));
}

std::optional<int> GetWholeNumber(XmlNode node, Attribute attribute) {
    const std::string value = GetAttributeValue(node, attribute);
    const std::string_view text = trimBlanks(value);
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

bool IsBoundToRecords(XmlNode form) {
    return GetWholeNumber(form, Attribute::HasRecordset) == 1;
}

std::string StripAmpersands(std::string_view text) {
    if (text.find('&') == std::string_view::npos) return std::string(text);
    std::string stripped;
    stripped.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && ++i == text.size()) break;
        stripped += text[i];
    }
    return stripped;
}

}  // namespace mergeloom
