#pragma once

#include "base/Units.h"
#include "office/libreoffice/session/OfficeConnection.h"
#include "office/libreoffice/session/Uno.h"
#include "office/model/excel/ColumnUnits.h"

#include <sal/types.h>

#include <com/sun/star/awt/XDevice.hpp>
#include <map>
#include <string>

namespace mergeloom::libreoffice {

/// Conversions of UNO's lengths, which are hundredths of a millimetre.
[[nodiscard]] Points pointsOf(sal_Int32 length);
[[nodiscard]] sal_Int32 lengthOf(Points points);
[[nodiscard]] sal_Int32 lengthOfPixels(int pixels);
[[nodiscard]] int pixelsOf(Points points);

/// Converts between the horizontal measures of a sheet: pixels, the column width that Excel shows, and UNO's
/// lengths. Excel rounds a digit's width to whole pixels, Calc to whole twips, in files that it reads as
/// well as in those that it writes, so its sheets are a little wider than Excel's. The conversion makes the
/// widths in files correct.
class CalcColumnUnits : public excel::ColumnUnits {
  public:
    /// Takes the width of the widest digit in pixels, not rounded.
    explicit CalcColumnUnits(double digitWidth);

    using ColumnUnits::pixelsOf;
    [[nodiscard]] int pixelsOf(sal_Int32 length) const;
    [[nodiscard]] sal_Int32 lengthOf(int pixels) const;
    [[nodiscard]] Points pointsOf(sal_Int32 length) const;
    [[nodiscard]] sal_Int32 lengthOf(Points points) const;

  private:
    double scale_;  ///< ratio of Calc's lengths to Excel's
};

/// The font of a text in a cell.
struct CalcFont {
    std::string name;
    double points = 11;
    float weight = 100;  ///< percentage of the normal weight (css::awt::FontWeight)
};

/// Measures texts with the office's own fonts.
class CalcFonts {
  public:
    explicit CalcFonts(OfficeConnection& connection) : connection_(connection) {}

    /// Returns the width of one line of text in pixels, 96 to an inch. It is measured in a large size and
    /// scaled, so that the widths of single characters are not rounded to pixels.
    double textWidth(const std::string& text, const CalcFont& font);
    /// Returns the width of the widest digit, in the same unit.
    double digitWidth(const CalcFont& font);

  private:
    const Reference<css::awt::XFont>& large(const CalcFont& font);

    OfficeConnection& connection_;
    Reference<css::awt::XDevice> device_;
    std::map<std::pair<std::string, float>, Reference<css::awt::XFont>> fonts_;
};

}  // namespace mergeloom::libreoffice
