#pragma once

#include <string>
#include <string_view>

/// Between text and the way in which a part writes it.
namespace mergeloom::embedded {

/// What an element's raw content says: entities resolved, CDATA unwrapped, comments and processing
/// instructions left out, line ends as "\n".
std::string decodeXml(std::string_view raw);
/// Escapes what may not stand in an element's content.
std::string escapeXml(std::string_view text);

/// Resolves the escapes _xHHHH_ of an ST_Xstring (ECMA-376 Part 1, 22.9.2.19).
std::string decodeXstring(std::string_view text);
/// Writes characters that XML 1.0 cannot hold, or would not keep, as _xHHHH_, and what only looks like such
/// an escape so that it stays. Bytes that are not UTF-8 become U+FFFD.
std::string encodeXstring(std::string_view text);

/// The text of a CT_Rst element (a shared string, an inline string; ECMA-376 Part 1, 18.4.8): its runs
/// joined, phonetic hints left out. The prefix is that of the elements' names, "x:" or empty.
std::string richText(std::string_view element, std::string_view prefix);

}  // namespace mergeloom::embedded
