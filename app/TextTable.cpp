#include "app/TextTable.h"

#include "base/Text.h"

#include <algorithm>

namespace mergeloom {

namespace {

constexpr std::size_t kMaxShownText = 60;
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

}  // namespace mergeloom
