#include "office/libreoffice/host/PlaceFrames.h"

#include <xcb/shape.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// An opaque light blue that is seen on white cells and on dark ones.
constexpr std::uint32_t kFrameColor = 0xff5b9bea;

/// The size of the window, which is larger than any screen: its shape decides.
constexpr std::uint16_t kLargest = std::numeric_limits<std::int16_t>::max();

void addLine(std::vector<xcb_rectangle_t>& lines, int x, int y, int width, int height) {
    lines.push_back({static_cast<std::int16_t>(x), static_cast<std::int16_t>(y),
                     static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height)});
}

/// Adds the four lines inside of the box.
void addFrame(std::vector<xcb_rectangle_t>& lines, const css::awt::Rectangle& box, int lineWidth) {
    const int width = std::min({lineWidth, int{box.Width}, int{box.Height}});
    addLine(lines, box.X, box.Y, box.Width, width);
    addLine(lines, box.X, box.Y + box.Height - width, box.Width, width);
    addLine(lines, box.X, box.Y, width, box.Height);
    addLine(lines, box.X + box.Width - width, box.Y, width, box.Height);
}

bool areEqual(const css::awt::Rectangle& one, const css::awt::Rectangle& other) {
    return one.X == other.X && one.Y == other.Y && one.Width == other.Width && one.Height == other.Height;
}

}  // namespace

/// Makes the window a sibling of the office's, in front of it: Calc paints its cells over windows inside its
/// own.
void PlaceFrames::make(xcb_window_t office) {
    if (office_ == office) return;
    hide();
    office_ = office;
    lines_ = xcb_generate_id(windows_.get());
    xcb_create_window(windows_.get(), XCB_COPY_FROM_PARENT, lines_, windows_.parentOf(office_), 0, 0,
                      kLargest, kLargest, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL, &kFrameColor);
    // The window below receives the clicks.
    xcb_shape_rectangles(windows_.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED,
                         lines_, 0, 0, 0, nullptr);
}

void PlaceFrames::show(xcb_window_t office, std::vector<css::awt::Rectangle> boxes) {
    if (boxes.empty()) return hide();
    const bool isSame = office_ == office && std::ranges::equal(boxes, boxes_, areEqual);
    if (isSame) return;
    make(office);
    boxes_ = std::move(boxes);
    shape();
    xcb_map_window(windows_.get(), lines_);
    windows_.waitForServer();
}

void PlaceFrames::shape() const {
    std::vector<xcb_rectangle_t> lines;
    for (const css::awt::Rectangle& box : boxes_)
        addFrame(lines, box, lineWidth_);
    xcb_shape_rectangles(windows_.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_UNSORTED,
                         lines_, 0, 0, static_cast<std::uint32_t>(lines.size()), lines.data());
}

void PlaceFrames::hide() {
    if (office_ == XCB_WINDOW_NONE) return;
    xcb_destroy_window(windows_.get(), lines_);
    office_ = XCB_WINDOW_NONE;
    boxes_.clear();
    windows_.waitForServer();
}

}  // namespace mergeloom::libreoffice
