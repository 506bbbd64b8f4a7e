#include "office/libreoffice/excel/CalcUnits.h"

#include <cmath>

namespace mergeloom::libreoffice {

namespace {

constexpr double kPerPoint = 2540.0 / 72.0;
constexpr double kPerPixel = 2540.0 / 96.0;
constexpr double kPointsPerPixel = 0.75;

template <typename Whole>
Whole rounded(double value) {
    return static_cast<Whole>(std::lround(value));
}

}  // namespace

Points pointsOf(sal_Int32 length) {
    return {length / kPerPoint};
}

sal_Int32 lengthOf(Points points) {
    return rounded<sal_Int32>(points.value * kPerPoint);
}

sal_Int32 lengthOfPixels(int pixels) {
    return rounded<sal_Int32>(pixels * kPerPixel);
}

int pixelsOf(sal_Int32 length) {
    return rounded<int>(length / kPerPixel);
}

int pixelsOf(Points points) {
    return rounded<int>(points.value / kPointsPerPixel);
}

int CalcColumnUnits::pixelsOf(ColumnWidth width) const {
    // Below one character the padding shrinks too.
    if (width.value < 1) return rounded<int>(width.value * (digit_ + padding_));
    return rounded<int>(width.value * digit_ + padding_);
}

ColumnWidth CalcColumnUnits::widthOf(int pixels) const {
    const double one = digit_ + padding_;
    const double characters = pixels < one ? pixels / one : static_cast<double>(pixels - padding_) / digit_;
    return {std::round(characters * 100) / 100};
}

}  // namespace mergeloom::libreoffice
