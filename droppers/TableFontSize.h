#pragma once

#include <optional>

namespace mergeloom {

/// The font size in points that lets the columns of a table fit on a page; none keeps the document's own.
constexpr std::optional<double> tableFontSize(int columns) {
    if (columns <= 10) return {};
    if (columns <= 15) return 10;
    return columns <= 20 ? 8 : 7;
}

}  // namespace mergeloom
