#pragma once

#include "base/Units.h"
#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

/// A picture on a sheet. It moves with the cells under it and keeps its size. Width and height change one by
/// one. Every member raises kObjectDeleted once it is gone.
class Picture : public Object {
  public:
    virtual std::string Name() = 0;
    virtual void SetName(const std::string& name) = 0;
    virtual Points Left() = 0;
    virtual void SetLeft(Points left) = 0;
    virtual Points Top() = 0;
    virtual void SetTop(Points top) = 0;
    virtual Points Width() = 0;
    virtual void SetWidth(Points width) = 0;
    virtual Points Height() = 0;
    virtual void SetHeight(Points height) = 0;
};

}  // namespace mergeloom::excel
