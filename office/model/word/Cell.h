#pragma once

#include "office/model/word/Forward.h"

namespace mergeloom::word {

class Cell : public Object {
  public:
    /// The cell with its end-of-cell mark. Setting the range's text keeps the mark.
    virtual RangePtr Range() = 0;
    /// Which cell of its row this is, from 1.
    virtual int ColumnIndex() = 0;
    virtual int RowIndex() = 0;
    /// Makes the cell with its mark the selection.
    virtual void Select() = 0;
};

}  // namespace mergeloom::word
