#include "office/model/excel/DefinedNameRule.h"

#include "office/model/excel/CellAddress.h"

#include <string_view>

namespace mergeloom::excel {

namespace {

bool isFirst(char32_t character) {
    return isNameLetter(character) || character == U'_' || character == U'\\';
}

bool isLater(char32_t character) {
    return isFirst(character) || isDigit(character) || character == U'.' || character == U'?';
}

bool hasNameCharacters(std::string_view text) {
    if (text.empty() || !isFirst(firstCodePoint(text))) return false;
    while (!text.empty()) {
        if (!isLater(takeCodePoint(text))) return false;
    }
    return true;
}

/// Removes a letter in either case, and the digits after it, from the start of a text.
bool takeNumbered(std::string_view& text, char letter) {
    if (text.empty() || !equalsIgnoringAsciiCase(text.substr(0, 1), {&letter, 1})) return false;
    text.remove_prefix(1);
    while (!text.empty() && text.front() >= '0' && text.front() <= '9')
        text.remove_prefix(1);
    return true;
}

/// Numbers beyond the sheet's edge count, too: a reader could not distinguish such a name from a cell.
bool isRowColumnNotation(std::string_view text) {
    const bool hasRow = takeNumbered(text, 'R');
    const bool hasColumn = takeNumbered(text, 'C');
    return (hasRow || hasColumn) && text.empty();
}

bool isTruthValue(std::string_view text) {
    return equalsIgnoringAsciiCase(text, "TRUE") || equalsIgnoringAsciiCase(text, "FALSE");
}

}  // namespace

bool isDefinedName(const std::string& text) {
    if (!hasNameCharacters(text) || utf16Length(text) > kMaxDefinedName) return false;
    return !parseCell(text) && !isRowColumnNotation(text) && !isTruthValue(text);
}

}  // namespace mergeloom::excel
