#include "office/libreoffice/excel/CalcArea.h"

#include <algorithm>

namespace mergeloom::libreoffice {

namespace {

constexpr int kLetterCount = 26;

std::string lettersOf(int column) {
    std::string letters;
    for (; column > 0; column = (column - 1) / kLetterCount)
        letters.insert(letters.begin(), static_cast<char>('A' + (column - 1) % kLetterCount));
    return letters;
}

std::string rowOf(const CalcCell& cell) {
    return "$" + std::to_string(cell.row);
}

std::string columnOf(const CalcCell& cell) {
    return "$" + lettersOf(cell.column);
}

std::string addressOf(const CalcCell& cell) {
    return columnOf(cell) + rowOf(cell);
}

}  // namespace

bool CalcArea::contains(const CalcCell& cell) const {
    return cell.row >= first.row && cell.row <= last.row && cell.column >= first.column &&
           cell.column <= last.column;
}

bool isInSheet(const CalcArea& area) {
    return area.first.row >= 1 && area.first.column >= 1 && area.last.row <= kSheetRows &&
           area.last.column <= kSheetColumns && area.rows() >= 1 && area.columns() >= 1;
}

std::optional<CalcArea> intersection(const CalcArea& a, const CalcArea& b) {
    const CalcArea common{{std::max(a.first.row, b.first.row), std::max(a.first.column, b.first.column)},
                          {std::min(a.last.row, b.last.row), std::min(a.last.column, b.last.column)}};
    if (common.rows() < 1 || common.columns() < 1) return {};
    return common;
}

std::string absoluteAddressOf(const CalcArea& area) {
    if (area.first == area.last) return addressOf(area.first);
    if (area.columns() == kSheetColumns) return rowOf(area.first) + ":" + rowOf(area.last);
    if (area.rows() == kSheetRows) return columnOf(area.first) + ":" + columnOf(area.last);
    return addressOf(area.first) + ":" + addressOf(area.last);
}

CalcArea areaOf(const css::table::CellRangeAddress& address) {
    return {{address.StartRow + 1, address.StartColumn + 1}, {address.EndRow + 1, address.EndColumn + 1}};
}

}  // namespace mergeloom::libreoffice
