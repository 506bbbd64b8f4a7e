#include "office/model/excel/ColumnUnits.h"

#include "office/model/excel/Range.h"

#include <algorithm>
#include <cmath>

namespace mergeloom::excel {

int ColumnUnits::pixelsOf(ColumnWidth width) const {
    const double characters = std::clamp(width.value, 0.0, kWidestColumn.value);
    // Below one character the padding shrinks too.
    const double pixels = characters < 1 ? characters * (digit_ + padding_) : characters * digit_ + padding_;
    return static_cast<int>(std::lround(pixels));
}

ColumnWidth ColumnUnits::widthOf(int pixels) const {
    const double one = digit_ + padding_;
    const double characters = pixels < one ? pixels / one : static_cast<double>(pixels - padding_) / digit_;
    return {std::round(characters * 100) / 100};
}

}  // namespace mergeloom::excel
