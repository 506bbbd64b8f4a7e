#pragma once

#include "base/ErrorHandler.h"
#include "xml/XmlNode.h"
#include "xml/modNamedItems.h"

#include <optional>
#include <string>
#include <string_view>

/// Reads the structure document. Names of elements and attributes may be in any mix of ASCII capitals and
/// small letters.
namespace mergeloom {

/// Returns the first element below a node, in document order, with that local name, regardless of ASCII case,
/// or null. With an attribute's name, the element must have such an attribute; with a value, exactly that
/// value (without its double quotes when it holds both kinds of quote). After an error, which is reported,
/// the result is null.
XmlNode SearchNodeNotCaseSensitive(ErrorHandler& errors, XmlNode contextNode, std::string_view elementName,
                                   std::string_view attributeName = {}, std::string_view attributeValue = {},
                                   bool childrenOnly = false);

/// Returns the caption without its accelerators, otherwise the name, otherwise an empty text. After an error,
/// which is reported, the result is an empty text.
std::string GetControlCaption(ErrorHandler& errors, XmlNode node);

/// Returns the value of the attribute of exactly that name; empty when the node is null or has no such
/// attribute.
std::string GetAttributeValue(XmlNode node, const std::string& attributeName);
inline std::string GetAttributeValue(XmlNode node, Attribute attribute) {
    return GetAttributeValue(node, AttributeName(attribute));
}

/// Returns the whole number in an attribute, with or without blanks around it; none when the attribute is
/// absent or holds anything else.
std::optional<int> GetWholeNumber(XmlNode node, Attribute attribute);
/// Returns true when a form shows the records of a table or query.
bool IsBoundToRecords(XmlNode form);

/// Removes the ampersands that mark accelerators; "&&" becomes one ampersand.
std::string StripAmpersands(std::string_view text);

}  // namespace mergeloom
