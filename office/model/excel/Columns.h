#pragma once

#include "office/model/excel/Forward.h"

namespace mergeloom::excel {

/// The columns of a range.
class Columns : public Counted {
  public:
    /// Makes each column as wide as the widest text of the range's cells in it; an empty column stays. Raises
    /// kApplicationDefined for a protected sheet.
    virtual void AutoFit() = 0;
};

}  // namespace mergeloom::excel
