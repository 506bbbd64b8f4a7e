#pragma once

#include "office/libreoffice/host/CaretPlacer.h"
#include "office/libreoffice/host/LandingMark.h"
#include "office/libreoffice/host/WindowSystem.h"
#include "office/model/DocumentHost.h"

#include <chrono>

namespace mergeloom::libreoffice {

/// The effects of a drag that hovers over a document: a line in a text, a scrolled view near its edges. The
/// members are to be called within a call of the connection, except hide().
class DropPreview {
  public:
    /// The window system must outlive it.
    explicit DropPreview(const WindowSystem& windows) : windows_(windows), mark_(windows) {}

    /// Scrolls when the point is near an edge of the document and enough time has passed since the last time.
    /// Returns true if the view is scrolled, after which the place at the point is another one.
    bool scroll(xcb_window_t office, HostPoint point, const css::awt::Rectangle& documentArea);
    /// Returns true once the drag has been over the same sheet's tab for some time.
    bool restsOnTab(const CaretTarget& target);
    /// Shows the line for a target in a text, and none for all others.
    void show(xcb_window_t office, const CaretTarget& target);
    void hide() { mark_.hide(); }

  private:
    const WindowSystem& windows_;
    LandingMark mark_;
    std::chrono::steady_clock::time_point lastScroll_;
    std::chrono::steady_clock::time_point onTabSince_;
    rtl::OUString tab_;  ///< the one that the drag is over; empty elsewhere
};

}  // namespace mergeloom::libreoffice
