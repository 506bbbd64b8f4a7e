#pragma once

#include <string>
#include <string_view>

/// Writes values of records as XML.
namespace mergeloom::embedded {

/// Appends a text as character data. Characters that XML forbids are left out.
void appendEscaped(std::string& xml, std::string_view text);

/// Appends a text as the content of a run: line breaks and tabs become their elements. The prefix is that of
/// the elements ("w:"). An empty text becomes an empty text element, by which a place that is filled again is
/// found with its formatting.
void appendRunContent(std::string& xml, std::string_view text, const std::string& prefix);

}  // namespace mergeloom::embedded
