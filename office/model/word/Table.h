#pragma once

#include "office/model/word/Forward.h"

namespace mergeloom::word {

/// The columns of a table.
class Columns : public Counted {};

/// One table. Every member raises kObjectDeleted once the table is gone.
class Table : public Object {
  public:
    /// From the first cell to behind the mark of the last row.
    virtual RangePtr Range() = 0;
    virtual RowsPtr Rows() = 0;
    virtual ColumnsPtr Columns() = 0;
    /// Table.Uniform: whether all rows have the same number of cells and no cell spans several rows.
    virtual bool Uniform() = 0;
    virtual void Select() = 0;
    /// A bookmark around the table goes with it.
    virtual void Delete() = 0;
};

}  // namespace mergeloom::word
