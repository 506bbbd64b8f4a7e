#include "office/embedded/sheet/FormulaReader.h"

#include "base/Text.h"
#include "office/model/excel/CellAddress.h"

#include <algorithm>
#include <array>
#include <utility>

namespace mergeloom::embedded {

namespace {

constexpr int kMaxDigits = 7;

/// The functions that work on all cells of an area.
constexpr std::array<std::string_view, 19> kSummingFunctions{
    {"SUM", "SUBTOTAL", "AGGREGATE", "AVERAGE", "AVERAGEA", "COUNT", "COUNTA", "COUNTBLANK", "MAX", "MIN",
     "MEDIAN", "PRODUCT", "SUMPRODUCT", "SUMIF", "COUNTIF", "STDEV", "VAR", "SUMSQ", "CONCAT"}};

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

/// Returns true for a character of a name, a number or a reference.
bool isWordCharacter(char character) {
    constexpr std::string_view kSigns = "_.$\\?";
    return isLetter(character) || isDigit(character) || static_cast<unsigned char>(character) >= 0x80 ||
           kSigns.find(character) != std::string_view::npos;
}

bool takeDollar(std::string_view& word) {
    if (!word.starts_with('$')) return false;
    word.remove_prefix(1);
    return true;
}

std::size_t countWhile(std::string_view text, bool (*matches)(char)) {
    return static_cast<std::size_t>(std::ranges::find_if_not(text, matches) - text.begin());
}

/// Parses one end of a reference. Returns nothing for a name or a number that is too large.
std::optional<Corner> parseCorner(std::string_view word) {
    Corner corner;
    bool stays = takeDollar(word);
    const std::size_t letters = countWhile(word, isLetter);
    if (letters > 0) {
        const std::optional<excel::CellPosition> column =
            excel::parseCell(std::string(word.substr(0, letters)) + "1");
        if (!column) return {};
        corner.column = column->column;
        corner.columnStays = stays;
        word.remove_prefix(letters);
        stays = takeDollar(word);
        if (word.empty()) return stays ? std::nullopt : std::optional(corner);
    }
    if (word.empty() || word.size() > kMaxDigits || countWhile(word, isDigit) != word.size()) return {};
    corner.row = std::stoi(std::string(word));
    corner.rowStays = stays;
    if (corner.row < 1 || corner.row > excel::kLastRow) return {};
    return corner;
}

bool sums(std::string_view function) {
    return std::ranges::any_of(
        kSummingFunctions, [&](std::string_view name) { return equalsIgnoringAsciiCase(function, name); });
}

}  // namespace

std::string Corner::text() const {
    std::string text;
    if (column > 0) text = (columnStays ? "$" : "") + excel::columnLetters(column);
    if (row > 0) text += (rowStays ? "$" : "") + std::to_string(row);
    return text;
}

bool FormulaReader::next() {
    begin_ = end_;
    reference_.reset();
    if (begin_ == formula_.size()) return false;
    end_ = begin_ + std::min(pieceSize(), formula_.size() - begin_);
    return true;
}

std::size_t FormulaReader::pieceSize() {
    const char first = rest().front();
    if (first == '"' || first == '\'') return quotedSize(first);
    if (first == '[') return bracketSize();
    if (first == '#') return errorSize();
    if (!isWordCharacter(first)) return signSize();
    return takeWord();
}

/// A doubled quote within a text needs no special care: it is read as two adjacent texts.
std::size_t FormulaReader::quotedSize(char quote) {
    const std::size_t close = rest().find(quote, 1);
    if (close == std::string_view::npos) return rest().size();
    const bool isSheet = quote == '\'' && rest().substr(close + 1).starts_with('!');
    if (isSheet) takeSheet(quotedNameBegin(), begin_ + close + 2);
    return close + (isSheet ? 2 : 1);
}

/// Returns the first of the texts that together are a sheet's name with doubled apostrophes.
std::size_t FormulaReader::quotedNameBegin() const {
    std::size_t begin = begin_;
    while (begin > 0 && formula_[begin - 1] == '\'') {
        const std::size_t open = begin < 2 ? std::string_view::npos : formula_.rfind('\'', begin - 2);
        if (open == std::string_view::npos) break;
        begin = open;
    }
    return begin;
}

/// Another workbook's number, or the columns after a table's name, in which "'" escapes the next character.
std::size_t FormulaReader::bracketSize() const {
    int depth = 0;
    for (std::size_t i = 0; i < rest().size(); ++i) {
        if (rest()[i] == '\'')
            ++i;
        else if (rest()[i] == '[')
            ++depth;
        else if (rest()[i] == ']' && --depth == 0)
            return i + 1;
    }
    return rest().size();
}

/// An error such as #DIV/0!, or the sign after a reference to a spilled array.
std::size_t FormulaReader::errorSize() const {
    if (rest().size() < 2 || !isLetter(rest()[1])) return 1;
    const std::size_t end = rest().find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ_/0", 1);
    if (end == std::string_view::npos) return rest().size();
    return rest()[end] == '!' || rest()[end] == '?' ? end + 1 : end;
}

std::size_t FormulaReader::signSize() {
    const char sign = rest().front();
    if (sign == '(') functions_.push_back(std::exchange(word_, {}));
    if (sign == ')' && !functions_.empty()) functions_.pop_back();
    if (sign != '(') word_ = {};
    return 1;
}

std::size_t FormulaReader::wordSizeAt(std::size_t offset) const {
    return offset < rest().size() ? countWhile(rest().substr(offset), isWordCharacter) : 0;
}

/// Parses the word at an offset as one end of a reference. Returns nothing for the name of a function, sheet
/// or table.
std::optional<Corner> FormulaReader::cornerAt(std::size_t offset) const {
    const std::size_t size = wordSizeAt(offset);
    constexpr std::string_view kAfterNames = "(![";
    const std::string_view next = rest().substr(offset + size, 1);
    if (size == 0 || (!next.empty() && kAfterNames.find(next) != std::string_view::npos)) return {};
    return parseCorner(rest().substr(offset, size));
}

std::size_t FormulaReader::takeWord() {
    const std::size_t size = wordSizeAt(0);
    const std::optional<Corner> first = cornerAt(0);
    word_ = rest().substr(0, size);
    if (!first && rest().substr(size).starts_with('!')) {
        takeSheet(begin_, begin_ + size + 1);
        return size + 1;
    }
    if (!first) return size;
    std::optional<Corner> last;
    if (rest().substr(size).starts_with(':')) last = cornerAt(size + 1);
    if (last && first->isSameKind(*last)) return takeReference(*first, last, size + 1 + wordSizeAt(size + 1));
    if (!first->isCell()) return size;
    return takeReference(*first, {}, size);
}

/// Remembers the sheet that the text up to an exclamation mark names.
void FormulaReader::takeSheet(std::size_t begin, std::size_t end) {
    std::string_view name = formula_.substr(begin, end - begin - 1);
    if (name.starts_with('\'')) name = name.substr(1, name.size() - 2);
    const std::string_view before = formula_.substr(0, begin);
    // "[1]Sheet1!A1" is in another workbook, "Sheet1:Sheet3!A1" on several sheets.
    const bool isForeign =
        before.ends_with(']') || before.ends_with(':') || name.find_first_of("[:") != std::string_view::npos;
    qualifier_ = {.sheet = replaceAll(name, "''", "'"), .isForeign = isForeign};
    qualifierBegin_ = begin;
    qualifierEnd_ = end;
}

std::size_t FormulaReader::takeReference(const Corner& first, std::optional<Corner> last, std::size_t size) {
    reference_ = qualifierEnd_ == begin_ ? qualifier_ : FormulaReference{};
    reference_->first = first;
    reference_->last = last;
    reference_->isSummed = !functions_.empty() && sums(functions_.back()) && isWholeArgument(begin_ + size);
    return size;
}

bool FormulaReader::isWholeArgument(std::size_t end) const {
    constexpr std::string_view kSpaces = " \t\r\n";
    const std::size_t begin = qualifierEnd_ == begin_ && begin_ > 0 ? qualifierBegin_ : begin_;
    const std::size_t before = formula_.substr(0, begin).find_last_not_of(kSpaces);
    const std::size_t after = formula_.find_first_not_of(kSpaces, end);
    if (before == std::string_view::npos || after == std::string_view::npos) return false;
    return (formula_[before] == '(' || formula_[before] == ',') &&
           (formula_[after] == ')' || formula_[after] == ',');
}

}  // namespace mergeloom::embedded
