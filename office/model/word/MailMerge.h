#pragma once

#include "office/model/word/Forward.h"

namespace mergeloom::word {

class MailMerge : public Object {
  public:
    /// MailMerge.Fields: the fields that serve nothing but a mail merge (MERGEFIELD, MERGEREC, MERGESEQ,
    /// NEXT, NEXTIF, SKIPIF).
    virtual FieldsPtr Fields() = 0;
};

}  // namespace mergeloom::word
