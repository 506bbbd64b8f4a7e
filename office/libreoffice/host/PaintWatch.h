#pragma once

#include "office/libreoffice/host/WindowEvents.h"
#include "office/libreoffice/host/WindowSystem.h"

#include <xcb/damage.h>

#include <functional>
#include <optional>

namespace mergeloom::libreoffice {

/// Reports the first painting of a window of the office after each update, by X's extension DAMAGE.
class PaintWatch {
  public:
    /// The sink is called by a thread of this object. Raises kNotAvailable if there is no X server.
    explicit PaintWatch(std::function<void()> sink);
    PaintWatch(const PaintWatch&) = delete;
    PaintWatch& operator=(const PaintWatch&) = delete;
    ~PaintWatch() = default;

    /// Reports from now on each time that the window is painted, and no longer the former one. Returns false
    /// if the server cannot do that.
    bool watch(xcb_window_t window);

  private:
    [[nodiscard]] bool isAvailable() const { return firstEvent_ != 0; }

    WindowSystem windows_;
    std::uint8_t firstEvent_ = 0;  ///< the number of the extension's first event; 0 without the extension
    xcb_window_t window_ = XCB_WINDOW_NONE;
    xcb_damage_damage_t damage_ = 0;
    std::function<void()> sink_;
    std::optional<WindowEvents> events_;
};

}  // namespace mergeloom::libreoffice
