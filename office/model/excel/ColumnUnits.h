#pragma once

#include "base/Units.h"

namespace mergeloom::excel {

/// Converts between a column's pixels and the width that Excel shows, which depends on the digits of the
/// workbook's default font (ECMA-376 Part 1, 18.3.1.13). Each office adds its own measure.
class ColumnUnits {
  public:
    /// Takes the width of the font's widest digit in pixels.
    explicit ColumnUnits(int digitWidth) : digit_(digitWidth), padding_(2 * ((digitWidth + 3) / 4) + 1) {}

    /// Returns the pixels of a column that its text cannot use: two margins and the grid line.
    [[nodiscard]] int padding() const { return padding_; }
    [[nodiscard]] int pixelsOf(ColumnWidth width) const;
    /// Returns the width as Excel shows it, rounded to two decimals.
    [[nodiscard]] ColumnWidth widthOf(int pixels) const;

  protected:
    [[nodiscard]] int digit() const { return digit_; }

  private:
    int digit_;
    int padding_;
};

}  // namespace mergeloom::excel
