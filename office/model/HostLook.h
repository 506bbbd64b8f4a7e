#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace mergeloom {

/// A color of the screen, 0xRRGGBB.
enum class LookColor : std::uint32_t {};

/// The colors of the desktop's palette.
struct LookColors {
    LookColor window{};
    LookColor windowText{};
    LookColor base{};  ///< the background of input
    LookColor text{};
    LookColor highlight{};
    LookColor highlightedText{};
    LookColor light{};
    LookColor shadow{};

    bool operator==(const LookColors&) const = default;
};

/// The look of the desktop, which the hosted office adopts.
struct HostLook {
    int dotsPerInch = 0;               ///< 0 for the office's own
    std::optional<LookColors> colors;  ///< none for the office's own
    std::string fontFamily;            ///< empty for the office's own

    bool operator==(const HostLook&) const = default;
};

/// Returns true if the desktop's texts are lighter than their background.
[[nodiscard]] bool isDark(const HostLook& look);

}  // namespace mergeloom
