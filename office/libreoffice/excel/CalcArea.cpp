#include "office/libreoffice/excel/CalcArea.h"

#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <system_error>

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

std::optional<CalcCell> cellOfAbsoluteAddress(std::string_view address) {
    const std::size_t second = address.rfind('$');
    if (address.size() < 4 || address.front() != '$' || second < 2) return {};
    std::int64_t column = 0;
    for (const char letter : address.substr(1, second - 1)) {
        if (letter < 'A' || letter > 'Z' || column > kSheetColumns) return {};
        column = column * kLetterCount + (letter - 'A' + 1);
    }
    const std::string_view digits = address.substr(second + 1);
    CalcCell cell{0, static_cast<int>(column)};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), cell.row);
    if (error != std::errc{} || end != digits.data() + digits.size() || !isInSheet({cell, cell})) return {};
    return cell;
}

std::optional<CalcCell> cellOfAddress(std::string_view address) {
    if (address.starts_with('$')) address.remove_prefix(1);
    const std::size_t letters = std::min(address.find_first_of("$0123456789"), address.size());
    std::string column(address.substr(0, letters));
    std::ranges::transform(column, column.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    std::string_view row = address.substr(letters);
    if (row.starts_with('$')) row.remove_prefix(1);
    return cellOfAbsoluteAddress("$" + column + "$" + std::string(row));
}

std::string referenceOnSheet(const std::string& sheet, const std::string& address) {
    return "$'" + replaceAll(sheet, "'", "''") + "'." + address;
}

CalcArea areaOf(const css::table::CellRangeAddress& address) {
    return {{address.StartRow + 1, address.StartColumn + 1}, {address.EndRow + 1, address.EndColumn + 1}};
}

}  // namespace mergeloom::libreoffice
