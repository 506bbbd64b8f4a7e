#include "office/libreoffice/host/WindowLook.h"

#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/WindowClass.hpp>
#include <com/sun/star/awt/XStyleSettingsSupplier.hpp>
#include <com/sun/star/configuration/ReadOnlyAccess.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/frame/Frame.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/util/XCloseable.hpp>

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

/// A frame in a window that is never shown.
class UnseenFrame {
  public:
    explicit UnseenFrame(const Reference<css::uno::XComponentContext>& office)
        : frame_(css::frame::Frame::create(office), UNO_QUERY_THROW) {
        css::awt::WindowDescriptor top;
        top.Type = css::awt::WindowClass_TOP;
        top.WindowServiceName = "window";
        const Reference<css::awt::XToolkit> toolkit(css::awt::Toolkit::create(office), UNO_QUERY_THROW);
        frame_->initialize(Reference<css::awt::XWindow>(toolkit->createWindow(top), UNO_QUERY_THROW));
    }
    UnseenFrame(const UnseenFrame&) = delete;
    UnseenFrame& operator=(const UnseenFrame&) = delete;
    ~UnseenFrame() { dispose(); }

    [[nodiscard]] Reference<css::frame::XFrame> get() const { return frame_; }

  private:
    void dispose() const try {
        frame_->dispose();  // with its window
    } catch (const css::uno::Exception&) {
        // The office has ended.
    }

    Reference<css::frame::XFrame> frame_;
};

/// Returns the major version of the office, which is the year of the release since 2024; the last version
/// before is 7.6.
int releaseOf(const Reference<css::uno::XComponentContext>& office) {
    const Reference<css::container::XNameAccess> product(
        css::configuration::ReadOnlyAccess::create(office, "")
            ->getByHierarchicalName("/org.openoffice.Setup/Product"),
        UNO_QUERY_THROW);
    OUString version;
    product->getByName("ooSetupVersion") >>= version;
    return version.toInt32();
}

/// Loads an empty document into a frame that is not shown.
void makeBars(const Reference<css::uno::XComponentContext>& office) {
    const UnseenFrame frame(office);
    const Reference<css::frame::XComponentLoader> loader(frame.get(), UNO_QUERY_THROW);
    const Reference<css::util::XCloseable> document(
        loader->loadComponentFromURL("private:factory/swriter", "_self", 0, {}), UNO_QUERY_THROW);
    document->close(true);
}

}  // namespace

void makeFirstBars(const Reference<css::uno::XComponentContext>& office) try {
    constexpr int kFirstWithReset = 24;
    if (releaseOf(office) >= kFirstWithReset) makeBars(office);
} catch (const css::uno::Exception&) {
    // The bars of this document are the first ones of the office.
}

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
