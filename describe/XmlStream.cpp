#include "describe/XmlStream.h"

#include "base/Text.h"

#include <algorithm>

namespace mergeloom::describe {

namespace {

constexpr std::size_t kBufferSize = 65536;
constexpr char32_t kReplacement = 0xFFFD;
constexpr std::string_view kReplacementBytes = "\xEF\xBF\xBD";

/// Returns true for a byte that needs no escape.
constexpr bool isPlain(char byte) {
    return byte >= ' ' && byte != '<' && byte != '>' && byte != '&' && byte != '"' && byte != '\x7F';
}

/// The characters of XML 1.0 (production 2) beyond ASCII. U+FFFD may also denote a byte that is not UTF-8.
constexpr bool isXmlCharacter(char32_t codePoint) {
    return codePoint == U'\t' || codePoint == U'\n' || codePoint == U'\r' ||
           (codePoint >= U' ' && codePoint != 0xFFFE && codePoint != 0xFFFF);
}

}  // namespace

XmlStream& XmlStream::markup(std::string_view xml) {
    buffer_ += xml;
    if (buffer_.size() >= kBufferSize) flush();
    return *this;
}

XmlStream& XmlStream::text(std::string_view text) {
    while (!text.empty()) {
        const auto end = std::ranges::find_if_not(text, isPlain);
        const auto length = static_cast<std::size_t>(end - text.begin());
        markup(text.substr(0, length));
        text.remove_prefix(length);
        if (text.empty()) break;
        const bool isReplacement = text.starts_with(kReplacementBytes);
        const char32_t codePoint = takeCodePoint(text);
        if (codePoint == kReplacement && !isReplacement) hasReplacements_ = true;
        writeCodePoint(codePoint);
    }
    return *this;
}

/// Writes line ends and tabs as character references, since a parser normalises them in attributes.
void XmlStream::writeCodePoint(char32_t codePoint) {
    switch (codePoint) {
        case U'<':
            buffer_ += "&lt;";
            return;
        case U'>':
            buffer_ += "&gt;";
            return;
        case U'&':
            buffer_ += "&amp;";
            return;
        case U'"':
            buffer_ += "&quot;";
            return;
        case U'\t':
        case U'\n':
        case U'\r':
            buffer_ += "&#" + std::to_string(static_cast<int>(codePoint)) + ";";
            return;
        default:
            break;
    }
    const bool isAllowed = isXmlCharacter(codePoint);
    hasReplacements_ = hasReplacements_ || !isAllowed;
    appendCodePoint(buffer_, isAllowed ? codePoint : kReplacement);
}

void XmlStream::flush() {
    sink_.write(buffer_);
    buffer_.clear();
}

}  // namespace mergeloom::describe
