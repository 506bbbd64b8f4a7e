#pragma once

#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

class Worksheets : public Counted {
  public:
    /// Raises kSubscriptOutOfRange for a number outside 1 to Count.
    virtual WorksheetPtr Item(int number) = 0;
    /// Names are compared without regard to case. Raises kSubscriptOutOfRange.
    virtual WorksheetPtr Item(const std::string& name) = 0;

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kSubscriptOutOfRange, "There is no such sheet.");
    }
};

}  // namespace mergeloom::excel
