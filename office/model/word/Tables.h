#pragma once

#include "office/model/word/Forward.h"

namespace mergeloom::word {

/// The tables that a range touches (inside a table, that table) or those of a document's body, in order.
class Tables : public Counted {
  public:
    /// Raises kMemberNotFound for a number outside 1 to Count.
    virtual TablePtr Item(int number) = 0;
    /// Tables.Add: a table with a visible grid that shares the width of the text area evenly, before the
    /// paragraph that the range begins in; a paragraph that has text before the range is split there. Raises
    /// kCommandFailed for more than 63 columns.
    virtual TablePtr Add(Range& range, int rows, int columns) = 0;

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kMemberNotFound, "There is no such table.");
    }
};

}  // namespace mergeloom::word
