#pragma once

#include <string>
#include <string_view>

/// Writes values of records as XML.
namespace mergeloom::embedded {

/// Appends a text as character data. Omits characters that XML forbids.
void appendEscaped(std::string& xml, std::string_view text);

/// Appends a text as the content of a run. Line breaks and tabs become elements with the given prefix ("w:").
/// An empty text becomes an empty text element, which preserves the formatting of the place.
void appendRunContent(std::string& xml, std::string_view text, const std::string& prefix);

/// Returns a value for the code of a field, in which quotes and backslashes have a meaning (ECMA-376 Part 1,
/// 17.16.2).
std::string inFieldCode(std::string_view text);

}  // namespace mergeloom::embedded
