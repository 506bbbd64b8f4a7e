#pragma once

#include "base/Units.h"
#include "office/embedded/sheet/StyleSheet.h"

namespace mergeloom::embedded {

/// The three measures of a column's width: pixels, what a file says and what Excel shows. All hang on the
/// digits of the workbook's default font (ECMA-376 Part 1, 18.3.1.13).
class ColumnUnits {
  public:
    explicit ColumnUnits(const CellFont& defaultFont);

    /// The room beside a column's text: two margins and the grid line.
    [[nodiscard]] int padding() const { return padding_; }
    /// The width of a column for which neither sheet nor column says one.
    [[nodiscard]] int defaultPixels(int baseCharacters) const;
    [[nodiscard]] int widestPixels() const;

    [[nodiscard]] int pixelsOfFileWidth(double width) const;
    [[nodiscard]] double fileWidthOf(int pixels) const;
    [[nodiscard]] int pixelsOf(ColumnWidth width) const;
    /// Rounded to two decimals.
    [[nodiscard]] ColumnWidth shownWidthOf(int pixels) const;

  private:
    int digit_;
    int padding_;
};

}  // namespace mergeloom::embedded
