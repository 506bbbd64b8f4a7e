#include "office/embedded/sheet/SharedFormula.h"

#include "office/embedded/sheet/CellXml.h"
#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlScanner.h"
#include "office/embedded/sheet/XmlText.h"
#include "office/model/excel/CellAddress.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kLostReference = "#REF!";
constexpr int kMaxDigits = 7;

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

/// One end of a reference as it is written: a cell, a whole column or a whole row. The missing part is 0.
struct Corner {
    int column = 0;
    int row = 0;
    bool columnStays = false;
    bool rowStays = false;

    [[nodiscard]] bool isCell() const { return column > 0 && row > 0; }
    [[nodiscard]] bool isSameKind(const Corner& other) const {
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

/// Copies a formula with its references moved.
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

    /// A doubled quote within a text needs no special care: it is read as two adjacent texts.
    [[nodiscard]] std::size_t quotedSize(char quote) const {
        const std::size_t close = rest_.find(quote, 1);
        return close == std::string_view::npos ? rest_.size() : close + 1;
    }

    /// Another workbook's number, or the columns after a table's name, in which "'" escapes the next
    /// character.
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

    /// An error such as #DIV/0!, or the sign after a reference to a spilled array.
    [[nodiscard]] std::size_t errorSize() const {
        if (rest_.size() < 2 || !isLetter(rest_[1])) return 1;
        const std::size_t end = rest_.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ_/0", 1);
        if (end == std::string_view::npos) return rest_.size();
        return rest_[end] == '!' || rest_[end] == '?' ? end + 1 : end;
    }

    [[nodiscard]] std::size_t wordSizeAt(std::size_t offset) const {
        return offset < rest_.size() ? countWhile(rest_.substr(offset), isWordCharacter) : 0;
    }

    /// Parses the word at an offset as one end of a reference. Returns nothing for the name of a function,
    /// sheet or table.
    [[nodiscard]] std::optional<Corner> cornerAt(std::size_t offset) const {
        const std::size_t size = wordSizeAt(offset);
        constexpr std::string_view kAfterNames = "(![";
        const std::string_view next = rest_.substr(offset + size, 1);
        if (size == 0 || (!next.empty() && kAfterNames.find(next) != std::string_view::npos)) return {};
        return parseCorner(rest_.substr(offset, size));
    }

    void takeWord() {
        const std::size_t size = wordSizeAt(0);
        const std::optional<Corner> first = cornerAt(0);
        if (!first) return copy(size);
        std::optional<Corner> last;
        if (rest_.substr(size).starts_with(':')) last = cornerAt(size + 1);
        if (last && first->isSameKind(*last)) {
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

    /// Returns nothing if the moved corner is outside of the sheet.
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

/// A cell's membership in a shared formula.
struct Membership {
    int group = 0;
    std::optional<excel::CellArea> area{};  ///< set for a master
};

std::optional<Membership> membershipOf(const CellXml& cell) {
    if (findAttribute(cell.formulaAttributes, "t") != "shared") return {};
    Membership membership{findNumber(cell.formulaAttributes, "si").value_or(0)};
    if (const auto area = findAttribute(cell.formulaAttributes, "ref"))
        membership.area = excel::parseArea(*area);
    return membership;
}

std::string_view formulaTag(const CellXml& cell) {
    return cell.formula.substr(0, cell.formula.find('>', cell.formulaAttributes.size()) + 1);
}

/// Returns the part of a group's area from a cell on.
excel::CellArea areaFrom(const excel::CellPosition& cell, const excel::CellArea& area) {
    const int firstColumn = cell.row == area.last.row ? cell.column : area.first.column;
    return {{cell.row, firstColumn}, area.last};
}

std::string masterFormula(const CellXml& cell, const excel::CellArea& area, const std::string& text) {
    XmlTag tag(formulaTag(cell));
    tag.set("ref", addressOf(area));
    return tag.startTag() + escapeXml(text) + tag.endTag();
}

std::string ownFormula(const CellXml& cell, const std::string& text) {
    XmlTag tag(formulaTag(cell));
    tag.remove("t");
    tag.remove("si");
    return tag.startTag() + escapeXml(text) + tag.endTag();
}

ShiftedFormula shiftedTo(const excel::CellPosition& to, const excel::CellPosition& from,
                         const std::string& formula) {
    return shiftFormula(formula, to.row - from.row, to.column - from.column);
}

}  // namespace

ShiftedFormula shiftFormula(std::string_view formula, int rows, int columns) {
    return FormulaShifter(formula, rows, columns).shift();
}

std::optional<SharedFormulaPromotion> planPromotion(const SheetState& sheet,
                                                    const excel::CellPosition& cell) {
    const std::string& prefix = sheet.index.prefix;
    const std::string masterXml = sheet.cells.current(cell);
    const CellXml master = splitCell(masterXml, prefix);
    const std::optional<Membership> group = membershipOf(master);
    if (!group || !group->area) return {};
    SharedFormulaPromotion plan{group->group};
    const std::string text = decodeXml(master.formulaText);
    sheet.cells.forEachIn(*group->area, [&](const excel::CellPosition& successor, std::string_view xml) {
        const CellXml parts = splitCell(xml, prefix);
        const std::optional<Membership> membership = membershipOf(parts);
        if (successor == cell || !membership || membership->group != group->group) return true;
        if (membership->area) return false;
        const ShiftedFormula shifted = shiftedTo(successor, cell, text);
        plan.hasNewMaster = !shifted.leftSheet;
        plan.successors.push_back(
            {successor, plan.hasNewMaster
                            ? masterFormula(parts, areaFrom(successor, *group->area), shifted.text)
                            : ownFormula(parts, shifted.text)});
        return !plan.hasNewMaster;
    });
    return plan;
}

std::string formulaOf(const SheetState& sheet, const excel::CellPosition& cell, std::string_view cellXml) {
    const std::string& prefix = sheet.index.prefix;
    const CellXml parts = splitCell(cellXml, prefix);
    const std::optional<Membership> membership = membershipOf(parts);
    const std::string own = decodeXml(parts.formulaText);
    if (!membership || membership->area) return decodeXstring(own);
    const std::optional<excel::CellPosition> master =
        sheet.index.formulaGroups.masterOf(membership->group, cell);
    if (!master) return decodeXstring(own);
    const std::string masterXml = sheet.cells.current(*master);
    const std::string text = decodeXml(splitCell(masterXml, prefix).formulaText);
    return decodeXstring(shiftedTo(cell, *master, text).text);
}

}  // namespace mergeloom::embedded
