#pragma once

#include "office/model/word/Enumerations.h"
#include "office/model/word/Forward.h"

namespace mergeloom::word {

/// A field: its code and its result. Every member raises kObjectDeleted once the field is gone.
class Field : public Object {
  public:
    /// The range of the code, whose text is the code; a field nested in it counts with its result. Raises
    /// kNotAvailable, with a sentence about the field, when the office does not keep the code.
    virtual RangePtr Code() = 0;
    /// Returns true when the field was part of the code of another one, where no reader sees it, at the time
    /// that its collection was asked for.
    virtual bool isInCode() = 0;
    virtual WdFieldType Type() = 0;
    /// Makes the whole field, code and result, the selection.
    virtual void Select() = 0;
    virtual void Delete() = 0;
};

}  // namespace mergeloom::word
