#pragma once

#include "office/model/word/Forward.h"

namespace mergeloom::word {

/// A collection of which callers ask no more than how many there are.
class Counted : public Object {
  public:
    virtual int Count() = 0;
};

/// The floating shapes whose anchors lie in the range.
class ShapeRange : public Counted {};
/// The columns of a table.
class Columns : public Counted {};

}  // namespace mergeloom::word
