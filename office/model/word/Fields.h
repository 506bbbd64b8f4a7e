#pragma once

#include "office/model/word/Enumerations.h"
#include "office/model/word/Forward.h"

namespace mergeloom::word {

/// A field: its code and its result. Every member raises kObjectDeleted once the field is gone.
class Field : public Object {
  public:
    /// Returns the range of the code, whose text is the code; a field nested in it contributes its result.
    /// Raises kNotAvailable, with a sentence about the field, when the office does not keep the code.
    virtual RangePtr Code() = 0;
    /// Returns true when the field was part of the code of another one, where no reader sees it, at the time
    /// its collection was obtained.
    virtual bool isInCode() = 0;
    virtual WdFieldType Type() = 0;
    /// Makes the whole field, code and result, the selection.
    virtual void Select() = 0;
    virtual void Delete() = 0;
};

/// Fields of a range (those whose first character is in it) or of a document (those of all its stories), as
/// they were when the collection was obtained, in order; an outer field comes before those inside it.
class Fields : public Counted {
  public:
    /// Raises kMemberNotFound for a number outside 1 to Count.
    virtual FieldPtr Item(int number) = 0;

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kMemberNotFound, "There is no such field.");
    }
};

class MailMerge : public Object {
  public:
    /// MailMerge.Fields: returns the fields that only serve a mail merge (MERGEFIELD, MERGEREC, MERGESEQ,
    /// NEXT, NEXTIF, SKIPIF).
    virtual FieldsPtr Fields() = 0;
};

}  // namespace mergeloom::word
