#include "office/libreoffice/host/WindowLook.h"

#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/awt/XStyleSettingsSupplier.hpp>

namespace mergeloom::libreoffice {

namespace {

using Style = Reference<css::awt::XStyleSettings>;

css::util::Color unoColor(LookColor color) {
    return static_cast<css::util::Color>(color);
}

/// Leaves out the colors of the menu bar, of menus and of lists, whose background no setting of a window
/// changes.
void setColors(const Style& style, const LookColors& colors) {
    const css::util::Color window = unoColor(colors.window);
    const css::util::Color windowText = unoColor(colors.windowText);
    const css::util::Color base = unoColor(colors.base);
    const css::util::Color text = unoColor(colors.text);
    style->setFaceColor(window);
    style->setDialogColor(window);
    style->setWorkspaceColor(window);
    style->setDialogTextColor(windowText);
    style->setLabelTextColor(windowText);
    style->setButtonTextColor(windowText);
    style->setFieldColor(base);
    style->setFieldTextColor(text);
    style->setHighlightColor(unoColor(colors.highlight));
    style->setHighlightTextColor(unoColor(colors.highlightedText));
    style->setLightColor(unoColor(colors.light));
    style->setShadowColor(unoColor(colors.shadow));
    style->setCheckedColor(unoColor(colors.light));
}

/// Returns the font in another family and in its own size.
css::awt::FontDescriptor inFamily(css::awt::FontDescriptor font, const std::string& family) {
    font.Name = toUno(family);
    return font;
}

void setFonts(const Style& style, const std::string& family) {
    style->setApplicationFont(inFamily(style->getApplicationFont(), family));
    style->setToolFont(inFamily(style->getToolFont(), family));
    style->setLabelFont(inFamily(style->getLabelFont(), family));
    style->setFieldFont(inFamily(style->getFieldFont(), family));
    style->setPushButtonFont(inFamily(style->getPushButtonFont(), family));
}

}  // namespace

void applyLook(const Reference<css::awt::XWindow>& window, const HostLook& look) {
    const Reference<css::awt::XStyleSettingsSupplier> supplier(window, UNO_QUERY);
    const Style style = supplier.is() ? supplier->getStyleSettings() : Style();
    if (!style.is()) return;
    if (look.colors) setColors(style, *look.colors);
    if (!look.fontFamily.empty()) setFonts(style, look.fontFamily);
    // Otherwise bars fade from white to their color.
    if (isDark(look)) style->setHighContrastMode(true);
}

}  // namespace mergeloom::libreoffice
