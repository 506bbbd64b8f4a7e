#pragma once

#include "office/libreoffice/session/OfficeConnection.h"

#include <com/sun/star/awt/XDevice.hpp>
#include <map>
#include <string>
#include <tuple>

namespace mergeloom::libreoffice {

/// The font of a text in a cell.
struct CalcFont {
    std::string name;
    double points = 11;
    float weight = 100;  ///< per cent of the usual one (css::awt::FontWeight)
};

/// Measures texts with the office's own fonts.
class CalcFonts {
  public:
    explicit CalcFonts(OfficeConnection& connection) : connection_(connection) {}

    /// The width of one line of text in pixels, 96 to an inch. Measured large and scaled, so no pixel rounds
    /// the widths of single characters.
    double textWidth(const std::string& text, const CalcFont& font);
    /// Of the widest digit, in the same unit.
    double digitWidth(const CalcFont& font);

  private:
    const Reference<css::awt::XFont>& large(const CalcFont& font);

    OfficeConnection& connection_;
    Reference<css::awt::XDevice> device_;
    std::map<std::pair<std::string, float>, Reference<css::awt::XFont>> fonts_;
};

}  // namespace mergeloom::libreoffice
