#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/table/CellRangeAddress.hpp>
#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace mergeloom::libreoffice {

/// Excel's sheet, which Calc's has the size of.
inline constexpr int kSheetRows = 1048576;
inline constexpr int kSheetColumns = 16384;

/// A cell by its row and column, both counted from 1; UNO counts from 0.
struct CalcCell {
    int row = 1;
    int column = 1;

    friend auto operator<=>(const CalcCell&, const CalcCell&) = default;  // NOLINT
};

/// A block of cells, both corners included.
struct CalcArea {
    CalcCell first;
    CalcCell last;

    friend bool operator==(const CalcArea&, const CalcArea&) = default;
    [[nodiscard]] int rows() const { return last.row - first.row + 1; }
    [[nodiscard]] int columns() const { return last.column - first.column + 1; }
    [[nodiscard]] bool contains(const CalcCell& cell) const;
};

[[nodiscard]] bool isInSheet(const CalcArea& area);
[[nodiscard]] std::optional<CalcArea> intersection(const CalcArea& a, const CalcArea& b);
/// Excel's absolute address: "$B$3", "$B$3:$D$4", "$3:$4", "$B:$D".
[[nodiscard]] std::string absoluteAddressOf(const CalcArea& area);
/// The cell of such an address; none for anything but one cell of a sheet.
[[nodiscard]] std::optional<CalcCell> cellOfAbsoluteAddress(std::string_view address);
/// The same with or without "$", in any letter case.
[[nodiscard]] std::optional<CalcCell> cellOfAddress(std::string_view address);
/// Calc's notation of an address on a sheet: "$'Sheet1'.$B$3".
[[nodiscard]] std::string referenceOnSheet(const std::string& sheet, const std::string& address);
[[nodiscard]] CalcArea areaOf(const css::table::CellRangeAddress& address);

}  // namespace mergeloom::libreoffice
