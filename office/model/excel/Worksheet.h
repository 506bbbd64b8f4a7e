#pragma once

#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

/// A sheet of cells.
class Worksheet : public Object {
  public:
    virtual std::string Name() = 0;
    virtual RangePtr Cells(int row, int column) = 0;
    /// The cells of an address in A1 notation, such as "B3" or "$B$3". Raises kApplicationDefined for a text
    /// that is no address of a cell.
    virtual RangePtr Range(const std::string& address) = 0;
    /// Worksheet.UsedRange: the smallest block that holds all cells that are stored, be it for their format;
    /// A1 in a sheet without any.
    virtual RangePtr UsedRange() = 0;
    virtual ShapesPtr Shapes() = 0;
    virtual PicturesPtr Pictures() = 0;
    /// Makes the sheet the active one. Raises kApplicationDefined for a hidden sheet.
    virtual void Activate() = 0;
};

}  // namespace mergeloom::excel
