#pragma once

#include "office/libreoffice/host/WindowSystem.h"

namespace mergeloom::libreoffice {

/// The window in which a frame of the office is made: first one of the screen's own, out of sight, then a
/// child of ours. LibreOffice listens to the keys of whichever window stands right below the screen when a
/// frame is made in it; made in ours, it would hear what the user types beside the document.
class EmbedWindow {
  public:
    /// The window system has to outlive it.
    EmbedWindow(const WindowSystem& windows, const HostWindow& host);
    EmbedWindow(const EmbedWindow&) = delete;
    EmbedWindow& operator=(const EmbedWindow&) = delete;
    /// Hides it. It goes with the line to the server: the office may still think of it.
    ~EmbedWindow();

    [[nodiscard]] xcb_window_t id() const { return window_; }
    void moveIntoHost() const;
    /// With the office's window in it, which would keep its size in a nest that was moved.
    void resize(int width, int height) const;

  private:
    const WindowSystem& windows_;
    xcb_window_t host_;
    xcb_window_t window_;
};

}  // namespace mergeloom::libreoffice
