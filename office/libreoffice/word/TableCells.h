#pragma once

#include "office/libreoffice/word/TextPlace.h"

#include <vector>

namespace mergeloom::libreoffice {

/// The names of a row's cells as Writer gives them ("B2"), those below a cell that takes several rows
/// included.
using RowOfCells = std::vector<OUString>;

/// The place of a cell in its table, both numbers from 0.
struct CellPlace {
    std::size_t row = 0;
    std::size_t column = 0;

    friend auto operator<=>(const CellPlace&, const CellPlace&) = default;  // NOLINT
};

/// Returns the innermost table around the place, or none.
TableReference tableAt(const RangeReference& place);

/// Returns the table that ends where the place's paragraph starts, or none. The place has to be at that
/// start.
TableReference tableBefore(const RangeReference& place);

/// Returns the table around a table, or none.
TableReference tableAround(const TableReference& table);

/// Returns the innermost table around both places, or none.
TableReference tableAround(const RangeReference& start, const RangeReference& end);

/// Returns the innermost table around both ends of the range, or none.
TableReference tableAround(const TrackedRange& range);

bool isSameTable(const TableReference& one, const TableReference& other);

/// Returns the first place of a text, in the first cell of a table when the text begins with one.
RangeReference firstPlaceOf(const TextReference& text);

/// Returns the place after the table; goes through the text that the table is in.
RangeReference placeAfter(const TextReference& story, const TableReference& table);

std::vector<RowOfCells> rowsOf(const TableReference& table);

/// Returns true when all rows have the same cells and none takes several rows.
bool isUniform(const TableReference& table);

/// Returns the text of the cell of that name, and a cursor over the text of a cell. When that begins with a
/// table, the cursor starts after it.
TextReference cellText(const TableReference& table, const OUString& name);
CursorReference cursorOverCell(const TextReference& cell);

/// Returns the cell of the table that the place is in, also when it is in another table inside that cell.
CellPlace cellOf(const TableReference& table, const std::vector<RowOfCells>& rows, const TextReference& story,
                 const RangeReference& place);

/// Returns the table's text from its first cell to its last one.
CursorReference cursorOverTable(const TableReference& table);

/// Returns the whole table, with all its marks.
TrackedRange wholeTable(const TextReference& story, const TableReference& table);

}  // namespace mergeloom::libreoffice
