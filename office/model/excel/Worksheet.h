#pragma once

#include "office/model/excel/Forward.h"

#include <string>

namespace mergeloom::excel {

/// A sheet of cells.
class Worksheet : public Object {
  public:
    virtual std::string Name() = 0;
    virtual RangePtr Cells(int row, int column) = 0;
    /// Returns the cells of an address in A1 notation, such as "B3" or "$B$3". Raises kApplicationDefined for
    /// a text that is no address of a cell.
    virtual RangePtr Range(const std::string& address) = 0;
    /// Worksheet.UsedRange: returns the smallest block that holds all stored cells, even those stored only
    /// for their format; A1 in a sheet without any.
    virtual RangePtr UsedRange() = 0;
    virtual ShapesPtr Shapes() = 0;
    virtual PicturesPtr Pictures() = 0;
    /// Makes the sheet the active one. Raises kApplicationDefined for a hidden sheet.
    virtual void Activate() = 0;
};

class Worksheets : public Counted {
  public:
    /// Raises kSubscriptOutOfRange for a number outside 1 to Count.
    virtual WorksheetPtr Item(int number) = 0;
    /// Returns the sheet of that name, regardless of letter case. Raises kSubscriptOutOfRange.
    virtual WorksheetPtr Item(const std::string& name) = 0;

  protected:
    std::size_t indexOf(int number) {
        return Counted::indexOf(number, kSubscriptOutOfRange, "There is no such sheet.");
    }
};

}  // namespace mergeloom::excel
