#include "office/embedded/letters/ValueXml.h"

#include <algorithm>
#include <array>

namespace mergeloom::embedded {

namespace {

/// The bytes that may have to be replaced: markup, control characters, and the first byte of U+FFFE and
/// U+FFFF, which is also the first byte of ordinary characters.
constexpr std::array<bool, 256> kSpecialBytes = [] {
    std::array<bool, 256> special{};
    for (std::size_t byte = 0; byte < 0x20; ++byte)
        special[byte] = true;
    for (const unsigned char byte : {'<', '>', '&', '"', '\x7f', '\xef'})
        special[byte] = true;
    return special;
}();

bool isSpecial(char byte) {
    return kSpecialBytes[static_cast<unsigned char>(byte)];
}

bool isForbidden(std::string_view text, std::size_t position) {
    const std::string_view three = text.substr(position, 3);
    // These noncharacters mark places (U+FDD0, U+FDD1).
    return three == "\uFFFE" || three == "\uFFFF" || three == "\uFDD0" || three == "\uFDD1" ||
           three == "\uFDD2";
}

std::string_view entityOf(char byte) {
    switch (byte) {
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '&':
            return "&amp;";
        default:
            return "&quot;";
    }
}

bool isLineBreak(char byte) {
    return byte == '\r' || byte == '\n' || byte == '\v' || byte == '\f';
}

void appendText(std::string& xml, std::string_view text, const std::string& prefix) {
    if (text.empty()) return;
    const bool keepsBlanks = text.front() == ' ' || text.back() == ' ';
    xml.append("<").append(prefix).append(keepsBlanks ? "t xml:space=\"preserve\">" : "t>");
    appendEscaped(xml, text);
    xml.append("</").append(prefix).append("t>");
}

}  // namespace

void appendEscaped(std::string& xml, std::string_view text) {
    std::size_t uncopied = 0;
    for (std::size_t position = 0; position < text.size(); ++position) {
        const char byte = text[position];
        if (!isSpecial(byte)) continue;
        const bool isCharacter = byte == '\t' || byte == '\n' || byte == '\r' || byte == '\xef';
        const bool forbidden = byte == '\xef' && isForbidden(text, position);
        if (isCharacter && !forbidden) continue;
        xml.append(text.substr(uncopied, position - uncopied));
        if (byte == '<' || byte == '>' || byte == '&' || byte == '"') xml.append(entityOf(byte));
        if (forbidden) position += 2;
        uncopied = position + 1;
    }
    xml.append(text.substr(std::min(uncopied, text.size())));
}

void appendRunContent(std::string& xml, std::string_view text, const std::string& prefix) {
    if (text.empty()) {
        xml.append("<").append(prefix).append("t/>");
        return;
    }
    while (!text.empty()) {
        const auto at = std::ranges::find_if(text, [](char c) { return isLineBreak(c) || c == '\t'; });
        const auto length = static_cast<std::size_t>(at - text.begin());
        appendText(xml, text.substr(0, length), prefix);
        if (length == text.size()) return;
        xml.append("<").append(prefix).append(text[length] == '\t' ? "tab/>" : "br/>");
        const bool isPair = text.substr(length).starts_with("\r\n");
        text.remove_prefix(length + (isPair ? 2 : 1));
    }
}

std::string inFieldCode(std::string_view text) {
    std::string code;
    code.reserve(text.size());
    for (const char byte : text) {
        if (byte == '"' || byte == '\\') code += '\\';
        code += isLineBreak(byte) || byte == '\t' ? ' ' : byte;
    }
    return code;
}

}  // namespace mergeloom::embedded
