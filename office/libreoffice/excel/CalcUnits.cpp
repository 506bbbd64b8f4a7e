#include "office/libreoffice/excel/CalcUnits.h"

#include <algorithm>
#include <cmath>

namespace mergeloom::libreoffice {

namespace {

constexpr double kPerPoint = 2540.0 / 72.0;
constexpr double kPerPixel = 2540.0 / 96.0;
constexpr double kPointsPerPixel = 0.75;
constexpr double kTwipsPerPixel = 15;

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

CalcColumnUnits::CalcColumnUnits(double digitWidth)
    : digit_(std::max(1, rounded<int>(digitWidth))),
      padding_(2 * ((digit_ + 3) / 4) + 1),
      stretch_(std::floor(digitWidth * kTwipsPerPixel) / kTwipsPerPixel / digit_) {}

int CalcColumnUnits::pixelsOf(sal_Int32 length) const {
    return rounded<int>(length / kPerPixel / stretch_);
}

sal_Int32 CalcColumnUnits::lengthOf(int pixels) const {
    return rounded<sal_Int32>(pixels * kPerPixel * stretch_);
}

Points CalcColumnUnits::pointsOf(sal_Int32 length) const {
    return {length / kPerPoint / stretch_};
}

sal_Int32 CalcColumnUnits::lengthOf(Points points) const {
    return rounded<sal_Int32>(points.value * kPerPoint * stretch_);
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
