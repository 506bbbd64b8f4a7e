#pragma once

#include "office/model/excel/CellAddress.h"
#include "office/model/excel/Range.h"

#include <string>

namespace mergeloom::excel {

/// An area of cells as a range, from which the offices derive theirs: the members that depend only on the
/// address.
class AreaRange : public Range {
  public:
    /// Raises kApplicationDefined if the area exceeds the sheet.
    explicit AreaRange(const CellArea& area);

    int Row() override { return area_.first.row; }
    int Column() override { return area_.first.column; }
    CountedPtr Rows() override;
    std::string AddressLocal() override { return absoluteAddressOf(area_); }
    RangePtr Cells(int row, int column) override;
    RangePtr Resize(int rowSize, int columnSize) override;
    RangePtr Offset(int rowOffset, int columnOffset) override;

  protected:
    [[nodiscard]] const CellArea& area() const { return area_; }

  private:
    /// Returns the range of another area of the same sheet. Raises kApplicationDefined if it exceeds the
    /// sheet.
    [[nodiscard]] virtual RangePtr rangeAt(const CellArea& area) const = 0;

    CellArea area_;
};

/// Returns the cells that two ranges have in common; null if there are none (Application.Intersect).
RangePtr intersect(Range& first, Range& second);

}  // namespace mergeloom::excel
