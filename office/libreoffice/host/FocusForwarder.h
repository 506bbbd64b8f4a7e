#pragma once

#include "office/libreoffice/host/WindowSystem.h"

#include <atomic>
#include <thread>

namespace mergeloom::libreoffice {

/// Lets the keyboard follow the user's clicks between the office and the window around it, which belong to
/// different programs: neither a window manager nor LibreOffice does it for a window inside another one. The
/// clicks go on to whom they are meant for.
class FocusForwarder {
  public:
    /// Raises kNotAvailable when there is no X server.
    explicit FocusForwarder(xcb_window_t host);
    FocusForwarder(const FocusForwarder&) = delete;
    FocusForwarder& operator=(const FocusForwarder&) = delete;
    ~FocusForwarder();

    /// While it is not, clicks give the office nothing.
    void setEnabled(bool enabled) { isEnabled_ = enabled; }

  private:
    void grabClicks(xcb_window_t window) const;
    void keep();
    void follow(const xcb_button_press_event_t& click);

    WindowSystem windows_;
    const xcb_window_t host_;
    const xcb_window_t top_;
    std::atomic<bool> isEnabled_ = true;
    int wakeUp_[2] = {-1, -1};
    std::thread thread_;
};

}  // namespace mergeloom::libreoffice
