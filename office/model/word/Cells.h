#pragma once

#include "office/model/word/Forward.h"

namespace mergeloom::word {

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

}  // namespace mergeloom::word
