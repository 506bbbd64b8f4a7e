#include "office/libreoffice/excel/CalcUnits.h"

#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <cmath>
#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XFont.hpp>

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

constexpr sal_Int16 kLargePixels = 1000;
constexpr double kPixelsPerPoint = 96.0 / 72.0;

double scaled(sal_Int32 width, const CalcFont& font) {
    return width * font.points * kPixelsPerPoint / kLargePixels;
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

int pixelsOf(Points points) {
    return rounded<int>(points.value / kPointsPerPixel);
}

CalcColumnUnits::CalcColumnUnits(double digitWidth)
    : ColumnUnits(std::max(1, rounded<int>(digitWidth))),
      scale_(std::floor(digitWidth * kTwipsPerPixel) / kTwipsPerPixel / digit()) {}

int CalcColumnUnits::pixelsOf(sal_Int32 length) const {
    return rounded<int>(length / kPerPixel / scale_);
}

sal_Int32 CalcColumnUnits::lengthOf(int pixels) const {
    return rounded<sal_Int32>(pixels * kPerPixel * scale_);
}

Points CalcColumnUnits::pointsOf(sal_Int32 length) const {
    return {length / kPerPoint / scale_};
}

sal_Int32 CalcColumnUnits::lengthOf(Points points) const {
    return rounded<sal_Int32>(points.value * kPerPoint * scale_);
}

double CalcFonts::textWidth(const std::string& text, const CalcFont& font) {
    return connection_.call([&] { return scaled(large(font)->getStringWidth(toUno(text)), font); });
}

double CalcFonts::digitWidth(const CalcFont& font) {
    const css::uno::Sequence<sal_Int16> widths =
        connection_.call([&] { return large(font)->getCharWidths('0', '9'); });
    const sal_Int16 widest = *std::ranges::max_element(widths);
    return scaled(widest, font);
}

const Reference<css::awt::XFont>& CalcFonts::large(const CalcFont& font) {
    if (!device_.is()) {
        const auto toolkit = css::awt::Toolkit::create(connection_.context());
        device_ = toolkit->createScreenCompatibleDevice(1, 1);
    }
    Reference<css::awt::XFont>& found = fonts_[{font.name, font.weight}];
    if (!found.is()) {
        css::awt::FontDescriptor descriptor;
        descriptor.Name = toUno(font.name);
        descriptor.Height = kLargePixels;
        descriptor.Weight = font.weight;
        found = device_->getFont(descriptor);
    }
    return found;
}

}  // namespace mergeloom::libreoffice
