#pragma once

#include <cstdint>

namespace mergeloom::embedded {

/// The rotation and reflection of a picture with an orientation tag (Exif 2.3, 4.6.4 A).
struct PictureTurn {
    int quarters = 0;  ///< clockwise
    bool isMirrored = false;

    /// Returns true if width and height are exchanged.
    [[nodiscard]] bool isSideways() const { return quarters % 2 == 1; }
};

inline constexpr std::int64_t kQuarterTurn = 5400000;  // ECMA-376 Part 1, 20.1.10.3

constexpr PictureTurn pictureTurn(int orientation) {
    switch (orientation) {
        case 2:
            return {0, true};
        case 3:
            return {2, false};
        case 4:
            return {2, true};
        case 5:
            return {3, true};
        case 6:
            return {1, false};
        case 7:
            return {1, true};
        case 8:
            return {3, false};
        default:
            return {};
    }
}

}  // namespace mergeloom::embedded
