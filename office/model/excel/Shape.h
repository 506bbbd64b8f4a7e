#pragma once

#include "base/Units.h"
#include "office/model/excel/Enumerations.h"
#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

/// An object on the drawing layer of a sheet. Every member raises kObjectDeleted once it is gone.
class Shape : public Object {
  public:
    virtual std::string Name() = 0;
    virtual MsoShapeType Type() = 0;
    /// The cell under the object's upper left corner.
    virtual RangePtr TopLeftCell() = 0;
    virtual Points Left() = 0;
    virtual Points Top() = 0;
    virtual Points Width() = 0;
    virtual Points Height() = 0;
    virtual void Delete() = 0;
};

}  // namespace mergeloom::excel
