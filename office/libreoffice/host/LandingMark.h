#pragma once

#include "office/libreoffice/host/WindowSystem.h"

#include <com/sun/star/awt/Rectangle.hpp>

namespace mergeloom::libreoffice {

/// A line over the text in the office's window that shows where a dragged node would be dropped. The office
/// draws its own caret only while it has the keyboard, and would lose the selection to it.
class LandingMark {
  public:
    /// The window system must outlive it.
    explicit LandingMark(const WindowSystem& windows) : windows_(windows) {}
    LandingMark(const LandingMark&) = delete;
    LandingMark& operator=(const LandingMark&) = delete;
    ~LandingMark() { hide(); }

    /// Shows the line at the left edge of the rectangle, whose coordinates are those of the office's window;
    /// returns when other programs see it, too.
    void show(xcb_window_t office, const css::awt::Rectangle& caret);
    void hide();

  private:
    void make(xcb_window_t office);

    const WindowSystem& windows_;
    xcb_window_t office_ = XCB_WINDOW_NONE;
    xcb_window_t line_ = XCB_WINDOW_NONE;
};

}  // namespace mergeloom::libreoffice
