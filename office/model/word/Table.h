#pragma once

#include "base/AutomationError.h"
#include "office/model/word/Forward.h"

#include <cstddef>

namespace mergeloom::word {

class Cell : public Object {
  public:
    /// Returns the cell with its end-of-cell mark. Setting the range's text keeps the mark.
    virtual RangePtr Range() = 0;
    /// Returns the number of the cell in its row, from 1.
    virtual int ColumnIndex() = 0;
    virtual int RowIndex() = 0;
    /// Makes the cell with its mark the selection.
    virtual void Select() = 0;
};

/// The cells of a row or of a range. A range outside tables has none: Range.Cells raises an AutomationError.
class Cells : public Counted {
  public:
    /// Raises kMemberNotFound for a number outside 1 to Count.
    virtual CellPtr Item(int number) = 0;

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kMemberNotFound, "There is no such cell.");
    }
};

/// The rows of a table.
class Rows : public Counted {
  public:
    /// Raises kMemberNotFound for a number outside 1 to Count.
    virtual RowPtr Item(int number) = 0;
    /// Rows.Add: appends an empty row like the last one; no cell of the new row is merged with one above. A
    /// bookmark around the whole table covers the new row too.
    virtual RowPtr Add() = 0;

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kMemberNotFound, "There is no such row.");
    }
};

class Row : public Object {
  public:
    virtual CellsPtr Cells() = 0;
};

/// The columns of a table.
class Columns : public Counted {};

/// One table. Every member raises kObjectDeleted once the table is gone.
class Table : public Object {
  public:
    /// Returns the range from the first cell to after the mark of the last row.
    virtual RangePtr Range() = 0;
    virtual RowsPtr Rows() = 0;
    virtual ColumnsPtr Columns() = 0;
    /// Table.Uniform: returns true when all rows have the same number of cells and no cell spans several
    /// rows.
    virtual bool Uniform() = 0;
    virtual void Select() = 0;
    /// Deletes the table and a bookmark around it.
    virtual void Delete() = 0;
};

/// The tables that a range touches (inside a table, that table) or those of a document's body, in order.
class Tables : public Counted {
  public:
    /// Raises kMemberNotFound for a number outside 1 to Count.
    virtual TablePtr Item(int number) = 0;
    /// Tables.Add: inserts a table with a visible grid and columns of equal width across the text area,
    /// before the paragraph in which the range begins; a paragraph with text before the range is split there.
    /// Raises kCommandFailed for more than kMaxTableColumns.
    virtual TablePtr Add(Range& range, int rows, int columns) = 0;

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kMemberNotFound, "There is no such table.");
    }
};

}  // namespace mergeloom::word
