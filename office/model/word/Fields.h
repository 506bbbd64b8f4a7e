#pragma once

#include "office/model/word/Forward.h"

namespace mergeloom::word {

/// Fields of a range (those whose first character lies in it) or of a document (those of all its stories), as
/// they were when the collection was asked for, in order; an outer field comes before those inside it.
class Fields : public Counted {
  public:
    /// Raises kMemberNotFound for a number outside 1 to Count.
    virtual FieldPtr Item(int number) = 0;

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kMemberNotFound, "There is no such field.");
    }
};

}  // namespace mergeloom::word
