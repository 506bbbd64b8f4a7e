#pragma once

#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

/// A sheet of cells.
class Worksheet : public Object {
  public:
    virtual std::string Name() = 0;
    virtual RangePtr Cells(int row, int column) = 0;
    virtual ShapesPtr Shapes() = 0;
    virtual PicturesPtr Pictures() = 0;
    /// Makes the sheet the active one. Raises kApplicationDefined for a hidden sheet.
    virtual void Activate() = 0;
};

}  // namespace mergeloom::excel
