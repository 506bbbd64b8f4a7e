#pragma once

#include "office/model/word/Forward.h"

namespace mergeloom::word {

class Font : public Object {
  public:
    /// Font.Size in points, in steps of a half.
    virtual void SetSize(double points) = 0;
};

}  // namespace mergeloom::word
