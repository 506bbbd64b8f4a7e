#pragma once

#include <QRect>

namespace mergeloom {

/// Returns the position for a window that leaves the surroundings of a point visible: where it is, or else
/// beside, below or above the point, wherever the screen has room. Where no side has room, it stays.
QPoint placeBeside(const QRect& window, const QPoint& point, const QRect& screen);

}  // namespace mergeloom
