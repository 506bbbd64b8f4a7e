#pragma once

#include "office/libreoffice/host/WindowSystem.h"

namespace mergeloom::libreoffice {

/// Makes the office's dialogs belong to the window around the office. They belong to its EmbedWindow, of
/// which no window manager knows, so they would cover the questions of that window.
class DialogOwner {
  public:
    /// The window system must outlive it; its events have to be passed to handle().
    DialogOwner(const WindowSystem& windows, xcb_window_t host, xcb_window_t top);

    void handle(const xcb_generic_event_t& event) const;

  private:
    void watch(const xcb_create_notify_event_t& created) const;
    void correct(xcb_window_t dialog) const;

    const WindowSystem& windows_;
    const xcb_window_t host_;
    const xcb_window_t top_;
};

}  // namespace mergeloom::libreoffice
