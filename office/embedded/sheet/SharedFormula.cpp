#include "office/embedded/sheet/SharedFormula.h"

#include "office/model/excel/CellAddress.h"

#include <algorithm>
#include <optional>

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kLostReference = "#REF!";
constexpr int kMostDigits = 7;

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

/// What names, numbers and references consist of.
bool isWordCharacter(char character) {
    constexpr std::string_view kSigns = "_.$\\?";
    return isLetter(character) || isDigit(character) || static_cast<unsigned char>(character) >= 0x80 ||
           kSigns.find(character) != std::string_view::npos;
}

/// One end of a reference as it is written: a cell, a whole column or a whole row. What is not there is 0.
struct Corner {
    int column = 0;
    int row = 0;
    bool columnStays = false;
    bool rowStays = false;

    [[nodiscard]] bool isCell() const { return column > 0 && row > 0; }
    [[nodiscard]] bool isLikewise(const Corner& other) const {
        return (column > 0) == (other.column > 0) && (row > 0) == (other.row > 0);
    }
};

bool takeDollar(std::string_view& word) {
    if (!word.starts_with('$')) return false;
    word.remove_prefix(1);
    return true;
}

std::size_t countWhile(std::string_view text, bool (*matches)(char)) {
    return static_cast<std::size_t>(std::ranges::find_if_not(text, matches) - text.begin());
}

/// Reads a word that is one end of a reference; nothing for a name or a number that is too large.
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
    if (word.empty() || word.size() > kMostDigits || countWhile(word, isDigit) != word.size()) return {};
    corner.row = std::stoi(std::string(word));
    corner.rowStays = stays;
    if (corner.row < 1 || corner.row > excel::kLastRow) return {};
    return corner;
}

/// Goes through a formula and writes it with its references moved.
class FormulaShifter {
  public:
    FormulaShifter(std::string_view formula, int rows, int columns)
        : rest_(formula), rows_(rows), columns_(columns) {}

    ShiftedFormula shift() {
        while (!rest_.empty())
            takeNext();
        return std::move(result_);
    }

  private:
    void takeNext() {
        const char first = rest_.front();
        if (first == '"' || first == '\'') return copy(quotedSize(first));
        if (first == '[') return copy(bracketSize());
        if (first == '#') return copy(errorSize());
        if (!isWordCharacter(first)) return copy(1);
        takeWord();
    }

    void copy(std::size_t size) {
        result_.text += rest_.substr(0, size);
        rest_.remove_prefix(std::min(size, rest_.size()));
    }

    /// A doubled quote is one within; it reads as two texts side by side.
    [[nodiscard]] std::size_t quotedSize(char quote) const {
        const std::size_t close = rest_.find(quote, 1);
        return close == std::string_view::npos ? rest_.size() : close + 1;
    }

    /// Another workbook's number, or what a table's name is followed by, where "'" hides the next character.
    [[nodiscard]] std::size_t bracketSize() const {
        int depth = 0;
        for (std::size_t i = 0; i < rest_.size(); ++i) {
            if (rest_[i] == '\'')
                ++i;
            else if (rest_[i] == '[')
                ++depth;
            else if (rest_[i] == ']' && --depth == 0)
                return i + 1;
        }
        return rest_.size();
    }

    /// An error such as #DIV/0!, or the sign behind a reference to a spilled array.
    [[nodiscard]] std::size_t errorSize() const {
        if (rest_.size() < 2 || !isLetter(rest_[1])) return 1;
        const std::size_t end = rest_.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ_/0", 1);
        if (end == std::string_view::npos) return rest_.size();
        return rest_[end] == '!' || rest_[end] == '?' ? end + 1 : end;
    }

    [[nodiscard]] std::size_t wordSizeAt(std::size_t offset) const {
        return offset < rest_.size() ? countWhile(rest_.substr(offset), isWordCharacter) : 0;
    }

    /// Reads the word at an offset as one end of a reference; a function's, sheet's or table's name is none.
    [[nodiscard]] std::optional<Corner> cornerAt(std::size_t offset) const {
        const std::size_t size = wordSizeAt(offset);
        constexpr std::string_view kBehindNames = "(![";
        const std::string_view behind = rest_.substr(offset + size, 1);
        if (size == 0 || (!behind.empty() && kBehindNames.find(behind) != std::string_view::npos)) return {};
        return parseCorner(rest_.substr(offset, size));
    }

    void takeWord() {
        const std::size_t size = wordSizeAt(0);
        const std::optional<Corner> first = cornerAt(0);
        if (!first) return copy(size);
        std::optional<Corner> last;
        if (rest_.substr(size).starts_with(':')) last = cornerAt(size + 1);
        if (last && first->isLikewise(*last)) {
            rest_.remove_prefix(size + 1 + wordSizeAt(size + 1));
            return appendArea(*first, *last);
        }
        if (!first->isCell()) return copy(size);
        rest_.remove_prefix(size);
        append(moved(*first).value_or(std::string(kLostReference)));
    }

    void appendArea(const Corner& first, const Corner& last) {
        const std::optional<std::string> from = moved(first);
        const std::optional<std::string> to = moved(last);
        append(from && to ? *from + ":" + *to : std::string(kLostReference));
    }

    void append(const std::string& reference) {
        result_.leftSheet |= reference == kLostReference;
        result_.text += reference;
    }

    /// Nothing when the corner leaves the sheet.
    [[nodiscard]] std::optional<std::string> moved(const Corner& corner) const {
        std::string text;
        if (corner.column > 0) {
            const int column = corner.column + (corner.columnStays ? 0 : columns_);
            if (column < 1 || column > excel::kLastColumn) return {};
            text += (corner.columnStays ? "$" : "") + excel::columnLetters(column);
        }
        if (corner.row == 0) return text;
        const int row = corner.row + (corner.rowStays ? 0 : rows_);
        if (row < 1 || row > excel::kLastRow) return {};
        return text + (corner.rowStays ? "$" : "") + std::to_string(row);
    }

    std::string_view rest_;
    int rows_;
    int columns_;
    ShiftedFormula result_;
};

}  // namespace

ShiftedFormula shiftFormula(std::string_view formula, int rows, int columns) {
    return FormulaShifter(formula, rows, columns).shift();
}

}  // namespace mergeloom::embedded
