#pragma once

#include "office/model/word/Forward.h"

namespace mergeloom::word {

/// The window of a document, or where there is none what would be seen in it.
class Window : public Object {
  public:
    virtual SelectionPtr Selection() = 0;
};

}  // namespace mergeloom::word
