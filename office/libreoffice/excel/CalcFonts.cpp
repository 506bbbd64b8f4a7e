#include "office/libreoffice/excel/CalcFonts.h"

#include "office/libreoffice/session/UnoText.h"

#include <algorithm>
#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XFont.hpp>

namespace mergeloom::libreoffice {

namespace {

constexpr sal_Int16 kLargePixels = 1000;
constexpr double kPixelsPerPoint = 96.0 / 72.0;

double scaled(sal_Int32 width, const CalcFont& font) {
    return width * font.points * kPixelsPerPoint / kLargePixels;
}

}  // namespace

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
