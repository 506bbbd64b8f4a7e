#pragma once

#include "office/libreoffice/word/TextPlace.h"

#include <vector>

namespace mergeloom::libreoffice {

/// The names of a row's cells as Writer gives them ("B2"), those below a cell that takes several rows
/// included.
using RowOfCells = std::vector<OUString>;

/// Where a cell stands in its table, both counted from 0.
struct CellPlace {
    std::size_t row = 0;
    std::size_t column = 0;

    friend auto operator<=>(const CellPlace&, const CellPlace&) = default;  // NOLINT
};

/// Returns the innermost table around the place, or none.
TableReference tableAt(const RangeReference& place);

/// Returns the table that ends where the place's paragraph starts, or none where the place is not there or no
/// table is.
TableReference tableBefore(const RangeReference& place);

/// Returns the table around a table, or none.
TableReference tableAround(const TableReference& table);

/// Returns the innermost table around both places, or none.
TableReference tableAround(const RangeReference& start, const RangeReference& end);

/// The same for the places of a range.
TableReference tableAround(const TrackedRange& range);

bool isSameTable(const TableReference& one, const TableReference& other);

/// Returns the first place of a text, in the first cell of a table that stands there.
RangeReference firstPlaceOf(const TextReference& text);

/// Returns the place after the table in the text that holds it; walks that text.
RangeReference placeAfter(const TextReference& story, const TableReference& table);

std::vector<RowOfCells> rowsOf(const TableReference& table);

/// Returns true when all rows have the same cells and none takes several rows.
bool isUniform(const TableReference& table);

/// Returns the cell of that name. A text that begins with a table begins after it.
TextReference cellText(const TableReference& table, const OUString& name);
CursorReference cursorOverCell(const TextReference& cell);

/// Returns the cell of the table in which the place stands, in another table of that cell or not.
CellPlace cellOf(const TableReference& table, const std::vector<RowOfCells>& rows, const TextReference& story,
                 const RangeReference& place);

/// Returns the table's text from its first cell to its last one.
CursorReference cursorOverTable(const TableReference& table);

/// Returns the whole table, with all its marks.
TrackedRange wholeTable(const TextReference& story, const TableReference& table);

}  // namespace mergeloom::libreoffice
