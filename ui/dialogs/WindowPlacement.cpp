#include "ui/dialogs/WindowPlacement.h"

#include <algorithm>

namespace mergeloom {

namespace {

/// The surroundings of the point: some lines of text, and the words beside it.
constexpr QSize kSurroundings(160, 100);

int within(int position, int length, int first, int last) {
    return std::max(first, std::min(position, last - length + 1));
}

}  // namespace

QPoint placeBeside(const QRect& window, const QPoint& point, const QRect& screen) {
    const QPoint half(kSurroundings.width() / 2, kSurroundings.height() / 2);
    const QRect kept(point - half, kSurroundings);
    if (!window.intersects(kept)) return window.topLeft();
    const int x = within(window.x(), window.width(), screen.left(), screen.right());
    const int y = within(window.y(), window.height(), screen.top(), screen.bottom());
    const QPoint places[] = {{kept.right() + 1, y},
                             {kept.left() - window.width(), y},
                             {x, kept.bottom() + 1},
                             {x, kept.top() - window.height()}};
    const auto* const found = std::ranges::find_if(
        places, [&](const QPoint& place) { return screen.contains(QRect(place, window.size())); });
    return found == std::end(places) ? window.topLeft() : *found;
}

}  // namespace mergeloom
