#include "office/embedded/sheet/ColumnUnits.h"

#include "office/embedded/sheet/FontMetrics.h"

#include <algorithm>
#include <cmath>

namespace mergeloom::embedded {

namespace {

/// The parts into which a file's widths divide a digit.
constexpr double kParts = 256;
constexpr ColumnWidth kWidest{255};

int rounded(double pixels) {
    return static_cast<int>(std::lround(pixels));
}

}  // namespace

ColumnUnits::ColumnUnits(const CellFont& defaultFont)
    : digit_(digitWidth(defaultFont)), padding_(2 * ((digit_ + 3) / 4) + 1) {}

int ColumnUnits::defaultPixels(int baseCharacters) const {
    constexpr int kStep = 8;
    const int pixels = baseCharacters * digit_ + padding_;
    return (pixels + kStep - 1) / kStep * kStep;
}

int ColumnUnits::widestPixels() const {
    return pixelsOf(kWidest);
}

int ColumnUnits::pixelsOfFileWidth(double width) const {
    const double bounded = std::clamp(width, 0.0, fileWidthOf(widestPixels()));
    const double half = std::trunc(kParts / 2 / digit_);
    return static_cast<int>((kParts * bounded + half) / kParts * digit_);
}

double ColumnUnits::fileWidthOf(int pixels) const {
    return std::trunc(pixels * kParts / digit_) / kParts;
}

int ColumnUnits::pixelsOf(ColumnWidth width) const {
    const double characters = std::clamp(width.value, 0.0, kWidest.value);
    // Below one character the padding shrinks too.
    if (characters < 1) return rounded(characters * (digit_ + padding_));
    return rounded(characters * digit_ + padding_);
}

ColumnWidth ColumnUnits::shownWidthOf(int pixels) const {
    const int one = digit_ + padding_;
    const double characters =
        pixels < one ? pixels / double(one) : static_cast<double>(pixels - padding_) / digit_;
    return {std::round(characters * 100) / 100};
}

}  // namespace mergeloom::embedded
