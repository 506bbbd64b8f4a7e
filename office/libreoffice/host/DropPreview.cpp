#include "office/libreoffice/host/DropPreview.h"

#include <optional>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

/// The distance from an edge of the document within which it is scrolled.
constexpr sal_Int32 kEdge = 24;
constexpr std::chrono::milliseconds kBetweenScrolls{120};
/// A drag that only passes over a tab does not open its sheet.
constexpr std::chrono::milliseconds kRestOnTab{300};

std::optional<WheelTurn> turnAt(HostPoint point, const css::awt::Rectangle& area) {
    const sal_Int32 x = point.x - area.X;
    const sal_Int32 y = point.y - area.Y;
    if (x < 0 || y < 0 || x >= area.Width || y >= area.Height) return std::nullopt;
    if (y < kEdge) return WheelTurn::Up;
    if (y >= area.Height - kEdge) return WheelTurn::Down;
    if (x < kEdge) return WheelTurn::Left;
    if (x >= area.Width - kEdge) return WheelTurn::Right;
    return std::nullopt;
}

}  // namespace

bool DropPreview::scroll(xcb_window_t office, HostPoint point, const css::awt::Rectangle& documentArea) {
    const std::optional<WheelTurn> turn = turnAt(point, documentArea);
    const auto now = std::chrono::steady_clock::now();
    if (!turn || now - lastScroll_ < kBetweenScrolls) return false;
    lastScroll_ = now;
    // The office copies what it scrolls on the screen.
    hide();
    windows_.turnWheel(office, point, *turn);
    return true;
}

bool DropPreview::restsOnTab(const CaretTarget& target) {
    const bool isOnTab = target.placement == CaretPlacement::OnSheetTab;
    const rtl::OUString tab = isOnTab ? target.spot.object->getAccessibleName() : rtl::OUString();
    const auto now = std::chrono::steady_clock::now();
    if (std::exchange(tab_, tab) != tab) onTabSince_ = now;
    return isOnTab && now - onTabSince_ >= kRestOnTab;
}

void DropPreview::show(xcb_window_t office, const CaretTarget& target) {
    const css::awt::Rectangle caret = CaretPlacer::caretAt(target);
    if (caret.Height == 0) return hide();
    mark_.show(office, caret);
}

}  // namespace mergeloom::libreoffice
