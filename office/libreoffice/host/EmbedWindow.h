#pragma once

#include "office/libreoffice/host/WindowSystem.h"

namespace mergeloom::libreoffice {

/// The window in which a frame of the office is made: first a top-level window, outside of the visible
/// screen, then a child of ours. LibreOffice takes the keys of the top-level window in which a frame is made;
/// made in ours, it would take what the user types beside the document.
class EmbedWindow {
  public:
    /// The window system has to outlive it.
    EmbedWindow(const WindowSystem& windows, const HostWindow& host);
    EmbedWindow(const EmbedWindow&) = delete;
    EmbedWindow& operator=(const EmbedWindow&) = delete;
    /// Hides it. The window is destroyed with the connection to the server, since the office may still use
    /// it.
    ~EmbedWindow();

    [[nodiscard]] xcb_window_t id() const { return window_; }
    void moveIntoHost() const;
    /// Resizes it together with the office's window in it, which would keep its size after the move into
    /// ours.
    void resize(int width, int height) const;

  private:
    const WindowSystem& windows_;
    xcb_window_t host_;
    xcb_window_t window_;
};

}  // namespace mergeloom::libreoffice
