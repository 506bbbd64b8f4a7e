#pragma once

#include <string_view>

/// Formats that can be read, though not by an office that knows nothing but Open Packaging. Extensions stand
/// without a dot and in lower case.
namespace mergeloom {

/// Whether files with the extension hold documents of such a format: Word's of 97 to 2003, OpenDocument, rich
/// text, web pages, plain text, XML of 2003.
bool isForeignWordExtension(std::string_view extension);
/// The same for workbooks: Excel's of 97 to 2003 and its binary ones, OpenDocument, lists and texts, SYLK,
/// DIF, web pages, XML of 2003.
bool isForeignExcelExtension(std::string_view extension);

}  // namespace mergeloom
