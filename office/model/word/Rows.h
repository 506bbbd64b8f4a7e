#pragma once

#include "office/model/word/Forward.h"

namespace mergeloom::word {

/// The rows of a table.
class Rows : public Counted {
  public:
    /// Raises kMemberNotFound for a number outside 1 to Count.
    virtual RowPtr Item(int number) = 0;
    /// Rows.Add: an empty row like the last one behind it; no cell of the new row hangs on one above. A
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

}  // namespace mergeloom::word
