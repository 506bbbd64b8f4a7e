#pragma once

#include "office/model/DocumentHost.h"

#include <xcb/xcb.h>

#include <memory>
#include <optional>
#include <vector>

namespace mergeloom::libreoffice {

/// A line of our own to the X server of the environment variable DISPLAY. Windows that are gone make its
/// members do nothing.
class WindowSystem {
  public:
    /// Raises kNotAvailable when there is no such server.
    WindowSystem();

    [[nodiscard]] xcb_connection_t* get() const { return connection_.get(); }
    /// The window of the office that covers the others in a window of ours, in a nest; none when there is
    /// none.
    [[nodiscard]] xcb_window_t innerWindow(xcb_window_t host) const;
    /// The child in front of the others; none when no child is visible.
    [[nodiscard]] xcb_window_t topChild(xcb_window_t window) const;
    /// The window of the whole screen on which a window is.
    [[nodiscard]] xcb_window_t screenOf(xcb_window_t window) const;
    /// The window that the user sees as a whole.
    [[nodiscard]] xcb_window_t topWindow(xcb_window_t window) const;
    /// Whether the mouse is over the window.
    [[nodiscard]] bool isMouseOver(xcb_window_t window) const;

    void giveKeyboardTo(xcb_window_t window, xcb_timestamp_t time) const;
    /// Plays a click of the left button; it is at the window's owner when this returns.
    void click(xcb_window_t window, HostPoint point);
    /// Until it has done what it was asked for.
    void waitForServer() const;

  private:
    [[nodiscard]] bool hasProperty(xcb_window_t window, xcb_atom_t property) const;
    [[nodiscard]] xcb_window_t parentOf(xcb_window_t window) const;

    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> connection_;
    xcb_timestamp_t clicks_ = 0;  ///< when the last one was, in a time of its own
};

}  // namespace mergeloom::libreoffice
