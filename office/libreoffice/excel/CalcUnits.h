#pragma once

#include "base/Units.h"
#include "office/libreoffice/session/Uno.h"

#include <sal/types.h>

namespace mergeloom::libreoffice {

/// UNO's lengths are hundredths of a millimetre.
[[nodiscard]] Points pointsOf(sal_Int32 length);
[[nodiscard]] sal_Int32 lengthOf(Points points);
[[nodiscard]] sal_Int32 lengthOfPixels(int pixels);
[[nodiscard]] int pixelsOf(sal_Int32 length);
[[nodiscard]] int pixelsOf(Points points);

/// The measures of a column's width: pixels, and what Excel shows. Both hang on the digits of the workbook's
/// default font (ECMA-376 Part 1, 18.3.1.13).
class CalcColumnUnits {
  public:
    explicit CalcColumnUnits(int digitWidth) : digit_(digitWidth), padding_(2 * ((digitWidth + 3) / 4) + 1) {}

    /// The room beside a column's text: two margins and the grid line.
    [[nodiscard]] int padding() const { return padding_; }
    [[nodiscard]] int pixelsOf(ColumnWidth width) const;
    /// Rounded to two decimals.
    [[nodiscard]] ColumnWidth widthOf(int pixels) const;

  private:
    int digit_;
    int padding_;
};

}  // namespace mergeloom::libreoffice
