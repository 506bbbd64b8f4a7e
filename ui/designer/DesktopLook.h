#pragma once

#include "office/model/HostLook.h"

class QWidget;

namespace mergeloom {

/// Returns the look that the toolkit gives the widget: palette, font, and the size of points on the screen.
[[nodiscard]] HostLook lookOf(const QWidget& widget);

}  // namespace mergeloom
