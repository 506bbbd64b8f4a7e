#pragma once

#include "office/model/word/Forward.h"

namespace mergeloom::word {

/// A collection of which callers ask no more than how many there are.
class Counted : public Object {
  public:
    virtual int Count() = 0;
};

/// Range.Cells: raises an AutomationError where the range is not in a table.
class Cells : public Counted {};
/// The fields whose first character lies in the range.
class Fields : public Counted {};
/// The floating shapes whose anchors lie in the range.
class ShapeRange : public Counted {};
/// The tables that the range touches; inside a table, that table.
class Tables : public Counted {};

}  // namespace mergeloom::word
