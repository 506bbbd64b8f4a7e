#pragma once

#include "base/Units.h"
#include "office/model/word/Forward.h"

#include <string>

namespace mergeloom::word {

/// A named place. Every member raises kObjectDeleted once the bookmark is gone from its document.
class Bookmark : public Object {
  public:
    virtual std::string Name() = 0;
    virtual RangePtr Range() = 0;

    virtual CharacterPosition Start() = 0;
    virtual void SetStart(CharacterPosition start) = 0;
    virtual CharacterPosition End() = 0;
    virtual void SetEnd(CharacterPosition end) = 0;

    /// Makes the bookmark's range the selection.
    virtual void Select() = 0;
};

}  // namespace mergeloom::word
