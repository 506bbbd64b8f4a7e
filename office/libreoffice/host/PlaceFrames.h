#pragma once

#include "office/libreoffice/host/WindowSystem.h"

#include <com/sun/star/awt/Rectangle.hpp>
#include <vector>

namespace mergeloom::libreoffice {

/// Frames over the office's window, in a window of ours that consists of their lines alone: the office paints
/// the area between the lines and receives the clicks on them. They are part of no document.
class PlaceFrames {
  public:
    /// The lines are that many pixels wide. The window system must outlive it.
    PlaceFrames(const WindowSystem& windows, int lineWidth) : windows_(windows), lineWidth_(lineWidth) {}
    PlaceFrames(const PlaceFrames&) = delete;
    PlaceFrames& operator=(const PlaceFrames&) = delete;
    ~PlaceFrames() { hide(); }

    /// Shows the frames of the boxes, in the coordinates of the office's window, in place of the former ones.
    void show(xcb_window_t office, std::vector<css::awt::Rectangle> boxes);
    void hide();

  private:
    void make(xcb_window_t office);
    void shape() const;

    const WindowSystem& windows_;
    const int lineWidth_;
    std::vector<css::awt::Rectangle> boxes_;
    xcb_window_t office_ = XCB_WINDOW_NONE;
    xcb_window_t lines_ = XCB_WINDOW_NONE;
};

}  // namespace mergeloom::libreoffice
