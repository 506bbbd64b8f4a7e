#include "office/libreoffice/host/EmbedWindow.h"

#include <algorithm>

namespace mergeloom::libreoffice {

namespace {

/// Left of and above every screen.
constexpr std::int16_t kOutOfSight = -3000;

/// A window has at least one pixel.
std::uint16_t extent(int pixels) {
    return static_cast<std::uint16_t>(std::max(pixels, 1));
}

}  // namespace

EmbedWindow::EmbedWindow(const WindowSystem& windows, const HostWindow& host)
    : windows_(windows), host_(static_cast<xcb_window_t>(host.id)), window_(xcb_generate_id(windows.get())) {
    constexpr std::uint32_t kUnmanaged = 1;
    xcb_create_window(windows_.get(), XCB_COPY_FROM_PARENT, window_, windows_.screenOf(host_), kOutOfSight,
                      kOutOfSight, extent(host.width), extent(host.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT, &kUnmanaged);
    xcb_map_window(windows_.get(), window_);
    windows_.waitForServer();
}

EmbedWindow::~EmbedWindow() {
    xcb_unmap_window(windows_.get(), window_);
    windows_.waitForServer();
}

void EmbedWindow::moveIntoHost() const {
    xcb_reparent_window(windows_.get(), window_, host_, 0, 0);
    windows_.waitForServer();
}

void EmbedWindow::resize(int width, int height) const {
    const std::uint32_t size[] = {extent(width), extent(height)};
    for (const xcb_window_t window : {window_, windows_.officeWindowIn(window_)}) {
        xcb_configure_window(windows_.get(), window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                             size);
    }
    windows_.waitForServer();
}

}  // namespace mergeloom::libreoffice
