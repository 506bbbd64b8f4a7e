#pragma once

#include "office/model/word/Enumerations.h"
#include "office/model/word/Forward.h"

namespace mergeloom::word {

/// A field: its code and its result. Every member raises kObjectDeleted once the field is gone.
class Field : public Object {
  public:
    /// The range of the code, whose text is the code; a field nested in it counts with its result.
    virtual RangePtr Code() = 0;
    virtual WdFieldType Type() = 0;
    /// Makes the whole field, code and result, the selection.
    virtual void Select() = 0;
    virtual void Delete() = 0;
};

}  // namespace mergeloom::word
