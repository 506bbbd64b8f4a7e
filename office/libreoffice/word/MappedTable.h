#pragma once

#include "base/Units.h"

#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// The length of a mark that ends a paragraph, a cell or a row.
inline constexpr CharacterCount kMark{1};

/// A cell as Writer names it ("B2"), and how much its text counts, the tables in it too, without the cell's
/// mark.
struct MappedCell {
    std::string name;
    CharacterCount length;
    int columns = 1;  ///< how many of the table's columns it takes
    int rows = 1;     ///< how many rows it takes; 0 below one that takes several
};

using MappedRow = std::vector<MappedCell>;

/// Where a cell stands in its table, both counted from 0.
struct CellPlace {
    std::size_t row = 0;
    std::size_t column = 0;

    friend auto operator<=>(const CellPlace&, const CellPlace&) = default;  // NOLINT
};

/// A table by the name that Writer gives it, and the positions that it takes in its story: each cell's text
/// and one more for the cell's mark, and one more for each row.
struct MappedTable {
    std::string name;
    CharacterPosition start;
    std::vector<MappedRow> rows;
    bool placed = true;  ///< false once the table is gone

    [[nodiscard]] CharacterPosition end() const;
    [[nodiscard]] CharacterPosition startOf(CellPlace cell) const;
    [[nodiscard]] CharacterPosition endOf(CellPlace cell) const;  ///< before the cell's mark
    [[nodiscard]] CellPlace lastCell() const { return {rows.size() - 1, rows.back().size() - 1}; }
    [[nodiscard]] MappedCell& at(CellPlace cell) { return rows[cell.row][cell.column]; }
    [[nodiscard]] const MappedCell& at(CellPlace cell) const { return rows[cell.row][cell.column]; }

    /// Whether all rows have the same cells and none takes several rows.
    [[nodiscard]] bool isUniform() const;

    [[nodiscard]] bool holds(CharacterPosition position) const {
        return start <= position && position < end();
    }
    /// The cell that the position stands in; before a row's mark, that row's last one. The table holds it.
    [[nodiscard]] CellPlace cellAt(CharacterPosition position) const;
};

/// The rows of a table that has cells of these names, in Writer's order: letters for the column, then a
/// number for the row, and for the parts of a split cell more of both behind it.
std::vector<MappedRow> rowsOfCells(const std::vector<MappedCell>& cells);

}  // namespace mergeloom::libreoffice
