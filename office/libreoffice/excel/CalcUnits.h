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

/// The measures across a sheet: pixels, what Excel shows as a column's width, and UNO's lengths. All hang on
/// the digits of the workbook's default font (ECMA-376 Part 1, 18.3.1.13). Excel takes a digit in whole
/// pixels, Calc in whole twips, in files that it reads as well as in those that it writes, so its sheets are
/// a little wider than Excel's. Lengths are converted so that files come out right.
class CalcColumnUnits {
  public:
    /// The widest digit in pixels, not rounded.
    explicit CalcColumnUnits(double digitWidth);

    /// The room beside a column's text: two margins and the grid line.
    [[nodiscard]] int padding() const { return padding_; }
    [[nodiscard]] int pixelsOf(ColumnWidth width) const;
    /// Rounded to two decimals.
    [[nodiscard]] ColumnWidth widthOf(int pixels) const;

    [[nodiscard]] int pixelsOf(sal_Int32 length) const;
    [[nodiscard]] sal_Int32 lengthOf(int pixels) const;
    [[nodiscard]] Points pointsOf(sal_Int32 length) const;
    [[nodiscard]] sal_Int32 lengthOf(Points points) const;

  private:
    int digit_;
    int padding_;
    double stretch_;  ///< Calc's lengths to Excel's
};

}  // namespace mergeloom::libreoffice
