#include "office/model/HostLook.h"

namespace mergeloom {

namespace {

/// Weights the components of a color by the eye's sensitivity.
std::uint32_t luminance(LookColor color) {
    const auto value = static_cast<std::uint32_t>(color);
    const std::uint32_t red = value >> 16U & 0xFFU;
    const std::uint32_t green = value >> 8U & 0xFFU;
    const std::uint32_t blue = value & 0xFFU;
    return 3 * red + 6 * green + blue;
}

}  // namespace

bool isDark(const HostLook& look) {
    return look.colors && luminance(look.colors->window) < luminance(look.colors->windowText);
}

}  // namespace mergeloom
