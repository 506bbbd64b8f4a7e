#pragma once

#include "office/libreoffice/host/WindowSystem.h"

#include <atomic>
#include <thread>

namespace mergeloom::libreoffice {

/// Gives the input focus to the window that the user clicks, of the office and the window around it, which
/// belong to different programs: neither a window manager nor LibreOffice does so for a window inside another
/// one. The clicks are passed on.
class FocusForwarder {
  public:
    /// Raises kNotAvailable when there is no X server.
    explicit FocusForwarder(xcb_window_t host);
    FocusForwarder(const FocusForwarder&) = delete;
    FocusForwarder& operator=(const FocusForwarder&) = delete;
    ~FocusForwarder();

    /// While disabled, clicks do not give the focus to the office.
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
