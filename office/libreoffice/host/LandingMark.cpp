#include "office/libreoffice/host/LandingMark.h"

#include <algorithm>

namespace mergeloom::libreoffice {

namespace {

/// An opaque blue that is seen on a white page and on a black one.
constexpr std::uint32_t kColor = 0xff2f7de1;
/// The width of the line as a part of its height, which follows the scale of the screen and the zoom.
constexpr int kPartOfHeight = 8;
constexpr int kThinnest = 3;

}  // namespace

void LandingMark::make(xcb_window_t office) {
    if (office_ == office) return;
    hide();
    office_ = office;
    line_ = xcb_generate_id(windows_.get());
    xcb_create_window(windows_.get(), XCB_COPY_FROM_PARENT, line_, office_, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, &kColor);
}

void LandingMark::show(xcb_window_t office, const css::awt::Rectangle& caret) {
    make(office);
    const int width = std::max(caret.Height / kPartOfHeight, kThinnest);
    // Signed values are passed in the same bits.
    const std::uint32_t place[] = {static_cast<std::uint32_t>(caret.X - width / 2),
                                   static_cast<std::uint32_t>(caret.Y), static_cast<std::uint32_t>(width),
                                   static_cast<std::uint32_t>(std::max(caret.Height, 1))};
    xcb_configure_window(
        windows_.get(), line_,
        XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
        place);
    xcb_map_window(windows_.get(), line_);
    windows_.waitForServer();
}

void LandingMark::hide() {
    if (office_ == XCB_WINDOW_NONE) return;
    xcb_destroy_window(windows_.get(), line_);
    office_ = XCB_WINDOW_NONE;
    windows_.waitForServer();
}

}  // namespace mergeloom::libreoffice
