#include "office/model/excel/CellAddress.h"

#include "base/Text.h"

#include <algorithm>
#include <utility>

namespace mergeloom::excel {

namespace {

constexpr int kLetterCount = 26;

bool isLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

void skipDollar(std::string_view& text) {
    if (text.starts_with('$')) text.remove_prefix(1);
}

/// Takes a column's letters off the text; 0 when it does not begin with a column of a sheet.
int takeColumn(std::string_view& text) {
    skipDollar(text);
    int column = 0;
    while (!text.empty() && isLetter(text.front())) {
        column = column * kLetterCount + (text.front() & 0x1F);
        if (column > kLastColumn) return 0;
        text.remove_prefix(1);
    }
    return column;
}

/// Takes a row's digits off the text; 0 when it does not begin with a row of a sheet.
int takeRow(std::string_view& text) {
    skipDollar(text);
    int row = 0;
    while (!text.empty() && text.front() >= '0' && text.front() <= '9') {
        row = row * 10 + (text.front() - '0');
        if (row > kLastRow) return 0;
        text.remove_prefix(1);
    }
    return row;
}

/// Reads one corner of an area; a row or column that the text leaves out is 0.
std::optional<CellPosition> parseCorner(std::string_view text) {
    CellPosition corner;
    corner.column = takeColumn(text);
    corner.row = takeRow(text);
    if (!text.empty() || (corner.column == 0 && corner.row == 0)) return {};
    return corner;
}

bool isWholeRows(const CellArea& area) {
    return area.first.column == 1 && area.last.column == kLastColumn;
}

bool isWholeColumns(const CellArea& area) {
    return area.first.row == 1 && area.last.row == kLastRow;
}

std::string join(const CellArea& area, const std::string& dollar) {
    const auto rowOf = [&](int row) { return dollar + std::to_string(row); };
    const auto columnOf = [&](int column) { return dollar + columnLetters(column); };
    const auto cellOf = [&](const CellPosition& cell) { return columnOf(cell.column) + rowOf(cell.row); };
    if (area.first == area.last) return cellOf(area.first);
    if (isWholeRows(area)) return rowOf(area.first.row) + ":" + rowOf(area.last.row);
    if (isWholeColumns(area)) return columnOf(area.first.column) + ":" + columnOf(area.last.column);
    return cellOf(area.first) + ":" + cellOf(area.last);
}

}  // namespace

bool CellArea::contains(const CellPosition& cell) const {
    return cell.row >= first.row && cell.row <= last.row && cell.column >= first.column &&
           cell.column <= last.column;
}

CellSelection withActiveCell(CellSelection selection, const CellArea& merged) {
    const auto holdsCell = [&](const CellArea& area) { return area.contains(merged.first); };
    if (!std::ranges::any_of(selection.areas, holdsCell)) selection.areas = {merged};
    selection.activeCell = merged.first;
    return selection;
}

bool isInSheet(const CellArea& area) {
    return area.first.row >= 1 && area.first.column >= 1 && area.last.row <= kLastRow &&
           area.last.column <= kLastColumn && area.rows() >= 1 && area.columns() >= 1;
}

std::optional<CellArea> intersection(const CellArea& a, const CellArea& b) {
    const CellArea common{{std::max(a.first.row, b.first.row), std::max(a.first.column, b.first.column)},
                          {std::min(a.last.row, b.last.row), std::min(a.last.column, b.last.column)}};
    if (common.rows() < 1 || common.columns() < 1) return {};
    return common;
}

CellArea enclosing(const CellArea& a, const CellArea& b) {
    return {{std::min(a.first.row, b.first.row), std::min(a.first.column, b.first.column)},
            {std::max(a.last.row, b.last.row), std::max(a.last.column, b.last.column)}};
}

std::string columnLetters(int column) {
    std::string letters;
    for (; column > 0; column = (column - 1) / kLetterCount) {
        letters.insert(letters.begin(), static_cast<char>('A' + (column - 1) % kLetterCount));
    }
    return letters;
}

std::string addressOf(const CellPosition& cell) {
    return columnLetters(cell.column) + std::to_string(cell.row);
}

std::string addressOf(const CellArea& area) {
    return join(area, "");
}

std::string absoluteAddressOf(const CellArea& area) {
    return join(area, "$");
}

std::optional<CellPosition> parseCell(std::string_view text) {
    const std::optional<CellPosition> cell = parseCorner(text);
    if (!cell || cell->row == 0 || cell->column == 0) return {};
    return cell;
}

std::optional<CellArea> parseArea(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) {
        const std::optional<CellPosition> cell = parseCell(text);
        if (!cell) return {};
        return CellArea{*cell, *cell};
    }
    const std::optional<CellPosition> one = parseCorner(text.substr(0, colon));
    const std::optional<CellPosition> other = parseCorner(text.substr(colon + 1));
    if (!one || !other) return {};
    // Either corner may leave out its row or its column, but both the same one.
    if ((one->row == 0) != (other->row == 0) || (one->column == 0) != (other->column == 0)) return {};
    const auto [top, bottom] = std::minmax(one->row, other->row);
    const auto [left, right] = std::minmax(one->column, other->column);
    return CellArea{{std::max(top, 1), std::max(left, 1)},
                    {bottom == 0 ? kLastRow : bottom, right == 0 ? kLastColumn : right}};
}

std::vector<CellArea> parseAreas(std::string_view text) {
    std::vector<CellArea> areas;
    for (const std::string_view part : split(text, ' ')) {
        if (const std::optional<CellArea> area = parseArea(part)) areas.push_back(*area);
    }
    return areas;
}

}  // namespace mergeloom::excel
