#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Cells and blocks of cells as SpreadsheetML writes them (ECMA-376 Part 1, 18.18.7, 18.18.62, 18.18.76).
namespace mergeloom::excel {

inline constexpr int kLastRow = 1048576;
inline constexpr int kLastColumn = 16384;

/// A cell by its row and column, both counted from 1. Ordered as a sheet stores its cells: by row, then by
/// column.
struct CellPosition {
    int row = 1;
    int column = 1;

    friend auto operator<=>(const CellPosition&, const CellPosition&) = default;  // NOLINT
};

/// A block of cells, both corners included.
struct CellArea {
    CellPosition first;
    CellPosition last;

    friend bool operator==(const CellArea&, const CellArea&) = default;
    [[nodiscard]] int rows() const { return last.row - first.row + 1; }
    [[nodiscard]] int columns() const { return last.column - first.column + 1; }
    [[nodiscard]] bool contains(const CellPosition& cell) const;
};

/// The selection of a sheet: one or more areas, one of whose cells is active.
struct CellSelection {
    CellPosition activeCell{};
    std::vector<CellArea> areas{CellArea{}};

    friend bool operator==(const CellSelection&, const CellSelection&) = default;
};

/// Returns the selection after the first of some merged cells was made the active one: the areas stay if they
/// contain it, otherwise the merged cells are selected.
CellSelection withActiveCell(CellSelection selection, const CellArea& merged);

/// Returns true if the area is within the rows and columns of a sheet.
bool isInSheet(const CellArea& area);
/// Returns the cells that both areas hold, if any.
std::optional<CellArea> intersection(const CellArea& a, const CellArea& b);
/// Returns the smallest area that holds both.
CellArea enclosing(const CellArea& a, const CellArea& b);

/// Returns "A" for 1, "XFD" for the last column.
std::string columnLetters(int column);
/// Returns an address such as "B3".
std::string addressOf(const CellPosition& cell);
/// Returns "B3", or "B3:D4" for more than one cell; whole rows and columns as "3:4" and "B:D".
std::string addressOf(const CellArea& area);
/// Returns the address with "$": "$B$3", "$B$3:$D$4", "$3:$4", "$B:$D".
std::string absoluteAddressOf(const CellArea& area);

/// Reads a cell, with or without "$", with letters in any case. Returns none when the text is no cell of a
/// sheet.
std::optional<CellPosition> parseCell(std::string_view text);
/// Reads an address that addressOf or absoluteAddressOf wrote, corners in any order.
std::optional<CellArea> parseArea(std::string_view text);
/// Reads a list of areas separated by blanks (ST_Sqref). Ignores anything else.
std::vector<CellArea> parseAreas(std::string_view text);

}  // namespace mergeloom::excel
