#include "app/ListFormatting.h"

#include "base/Text.h"

#include <algorithm>

namespace mergeloom {

namespace {

constexpr std::size_t kMaxShownText = 60;
/// With more names than these, the sentence around them would be lost.
constexpr std::size_t kMaxNames = 20;
constexpr char32_t kZeroWidthJoiner = U'\u200D';

std::size_t width(std::string_view text) {
    std::size_t characters = 0;
    while (!text.empty()) {
        if (takeCodePoint(text) != kZeroWidthJoiner) ++characters;
    }
    return characters;
}

/// Returns a character as it is shown in a line; control characters would break the table.
char32_t shownAs(char32_t character) {
    if (character == U'\r') return U'\u00B6';
    return character < U' ' || character == U'\x7F' ? U'\u00B7' : character;
}

void writeRow(std::ostream& stream, const TextRow& row, const std::vector<std::size_t>& widths) {
    for (std::size_t column = 0; column + 1 < row.size(); ++column) {
        stream << row[column] << std::string(widths[column] - width(row[column]) + 2, ' ');
    }
    stream << row.back() << "\n";
}

constexpr std::string_view kHexDigits = "0123456789abcdef";

}  // namespace

std::string shownInLine(std::string_view text) {
    std::string shown;
    for (std::size_t count = 0; !text.empty(); ++count) {
        if (count == kMaxShownText) return shown + "\u2026";
        appendCodePoint(shown, shownAs(takeCodePoint(text)));
    }
    return shown;
}

void writeTextTable(std::ostream& stream, const std::vector<TextRow>& rows) {
    std::vector<std::size_t> widths;
    for (const TextRow& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], width(row[column]));
        }
    }
    for (const TextRow& row : rows)
        writeRow(stream, row, widths);
}

std::string joinedNames(const std::vector<std::string>& names) {
    std::string joined;
    for (std::size_t index = 0; index < std::min(names.size(), kMaxNames); ++index)
        joined += (index == 0 ? "" : ", ") + names[index];
    if (names.size() <= kMaxNames) return joined;
    return joined + " and " + std::to_string(names.size() - kMaxNames) + " more";
}

void writeJsonText(std::ostream& stream, std::string_view text) {
    stream << '"';
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\') {
            stream << '\\' << character;
        } else if (code < 0x20 || code == 0x7F) {
            stream << "\\u00" << kHexDigits[code / 16] << kHexDigits[code % 16];
        } else {
            stream << character;
        }
    }
    stream << '"';
}

}  // namespace mergeloom
