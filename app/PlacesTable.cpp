#include "app/PlacesTable.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace mergeloom {

namespace {

constexpr std::size_t kColumnCount = 4;
using Row = std::array<std::string, kColumnCount>;
using Widths = std::array<std::size_t, kColumnCount>;

constexpr std::size_t kLongestShownText = 60;
constexpr char32_t kZeroWidthJoiner = U'\u200D';

std::size_t width(std::string_view text) {
    std::size_t characters = 0;
    while (!text.empty()) {
        if (takeCodePoint(text) != kZeroWidthJoiner) ++characters;
    }
    return characters;
}

/// A character as it shows in a line; control characters would tear the table.
char32_t shownAs(char32_t character) {
    if (character == U'\r') return U'\u00B6';
    return character < U' ' || character == U'\x7F' ? U'\u00B7' : character;
}

std::string shownText(std::string_view text) {
    std::string shown;
    for (std::size_t count = 0; !text.empty(); ++count) {
        if (count == kLongestShownText) return shown + "\u2026";
        appendCodePoint(shown, shownAs(takeCodePoint(text)));
    }
    return shown;
}

Row rowOf(const Place& place) {
    return {place.name, place.kind, shownText(place.where), shownText(place.text)};
}

void writeRow(std::ostream& stream, const Row& row, const Widths& widths) {
    for (std::size_t column = 0; column + 1 < kColumnCount; ++column) {
        stream << row[column] << std::string(widths[column] - width(row[column]) + 2, ' ');
    }
    stream << row.back() << "\n";
}

}  // namespace

void writePlacesTable(std::ostream& stream, const std::vector<Place>& places) {
    std::vector<Row> rows{{"NAME", "KIND", "WHERE", "TEXT"}};
    for (const Place& place : places)
        rows.push_back(rowOf(place));
    Widths widths{};
    for (const Row& row : rows) {
        for (std::size_t column = 0; column < kColumnCount; ++column) {
            widths[column] = std::max(widths[column], width(row[column]));
        }
    }
    for (const Row& row : rows)
        writeRow(stream, row, widths);
}

}  // namespace mergeloom
