#pragma once

#include <string>
#include <string_view>

/// Converts between text and its encoding in a part.
namespace mergeloom::embedded {

/// Returns the text of an element's raw content: entities resolved, CDATA unwrapped, comments and processing
/// instructions left out, line ends as "\n".
std::string decodeXml(std::string_view raw);
/// Escapes the characters that an element's content must not contain.
std::string escapeXml(std::string_view text);

/// Resolves the escapes _xHHHH_ of an ST_Xstring (ECMA-376 Part 1, 22.9.2.19).
std::string decodeXstring(std::string_view text);
/// Writes characters that XML 1.0 cannot represent or would not keep as _xHHHH_, and escapes text that only
/// looks like such an escape. Bytes that are not UTF-8 become U+FFFD.
std::string encodeXstring(std::string_view text);

/// Returns the text of a CT_Rst element (a shared string, an inline string; ECMA-376 Part 1, 18.4.8): all
/// runs joined, without phonetic hints. The prefix is that of the elements' names, "x:" or empty.
std::string richText(std::string_view element, std::string_view prefix);

/// Returns the XML of a part as UTF-8, regardless of its encoding; UTF-8 is returned unchanged. Raises
/// kFileCouldNotBeRead, naming file and part, if a part in another encoding is malformed.
std::string toUtf8Xml(std::string xml, const std::string& partName, const std::string& fileName);

}  // namespace mergeloom::embedded
