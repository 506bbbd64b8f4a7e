#pragma once

#include "base/ErrorHandler.h"
#include "xml/XmlNode.h"
#include "xml/modNamedItems.h"

#include <optional>
#include <string>
#include <string_view>

/// Reading of the structure document. Names of elements and attributes may come in any mix of ASCII capitals
/// and small letters.
namespace mergeloom {

/// The first element below a node, in document order, whose local name is the given one, ASCII case aside, or
/// none. With an attribute's name the element must carry such an attribute; with a value as well, that value
/// exactly, less its double quotes when it holds both kinds of quote. An error is reported; the answer is
/// none.
XmlNode SearchNodeNotCaseSensitive(ErrorHandler& errors, XmlNode contextNode, std::string_view elementName,
                                   std::string_view attributeName = {}, std::string_view attributeValue = {},
                                   bool childrenOnly = false);

/// The caption without its accelerators, else the name, else an empty text. An error is reported; the answer
/// is then an empty text.
std::string GetControlCaption(ErrorHandler& errors, XmlNode node);

/// The value of the attribute of exactly that name; empty when the node is none or has no such attribute.
std::string GetAttributeValue(XmlNode node, const std::string& attributeName);
inline std::string GetAttributeValue(XmlNode node, Attribute attribute) {
    return GetAttributeValue(node, AttributeName(attribute));
}

/// The whole number in an attribute, with or without blanks around it; none when it is absent or holds
/// anything else.
std::optional<int> GetWholeNumber(XmlNode node, Attribute attribute);
/// Returns whether a form shows the records of a table or query.
bool IsBoundToRecords(XmlNode form);

/// Takes out the ampersands that mark accelerators; "&&" stands for one ampersand.
std::string StripAmpersands(std::string_view text);

}  // namespace mergeloom
