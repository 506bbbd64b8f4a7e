#include "office/libreoffice/host/CaretPlacer.h"

#include <com/sun/star/accessibility/AccessibleRole.hpp>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

namespace a11y = css::accessibility;

using css::awt::Point;

ParagraphReference paragraphOf(const AccessibleSpot& spot) {
    return {spot.object, UNO_QUERY_THROW};
}

constexpr int kMaxClicks = 3;

}  // namespace

void clickUntilMoved(const NearestCaret& before, const std::function<NearestCaret()>& click) {
    for (int clicks = 0; clicks < kMaxClicks; ++clicks) {
        const NearestCaret after = click();
        if (after.present != before.present || after.present == after.nearest) return;
    }
}

void CaretPlacer::forget() {
    document_ = {};
    documentArea_ = {};
}

bool CaretPlacer::isInKnownDocument(AccessibleSpot& spot) const {
    if (!document_.area.is()) return false;
    const Point origin = document_.area->getLocationOnScreen() - spot.area->getLocationOnScreen();
    const Point point = spot.point - origin;
    if (!document_.area->containsPoint(point)) return false;
    spot = {document_.object, document_.area, point, origin};
    return true;
}

bool CaretPlacer::goToDocument(AccessibleSpot& spot) {
    if (isInKnownDocument(spot)) return true;
    while (goInto(spot)) {
        if (!isDocument(spot.role())) continue;
        document_ = spot;
        const css::awt::Size size = spot.area->getSize();
        documentArea_ = {spot.origin.X, spot.origin.Y, size.Width, size.Height};
        return true;
    }
    return false;
}

CaretTarget CaretPlacer::find(HostPoint point) {
    AccessibleSpot spot = spotIn(window_, Point(point.x, point.y));
    if (!spot.area.is()) return {};
    if (!goToDocument(spot)) {
        const bool isTab = spot.role() == a11y::AccessibleRole::PAGE_TAB;
        return {isTab ? CaretPlacement::OnSheetTab : CaretPlacement::Nowhere, std::move(spot)};
    }
    const bool isText = spot.role() == a11y::AccessibleRole::DOCUMENT_TEXT;
    return isText ? findInText(std::move(spot)) : findInCells(std::move(spot));
}

CaretTarget CaretPlacer::findInText(AccessibleSpot spot) {
    while (holdsText(spot.role()) && goInto(spot)) {
    }
    const sal_Int16 role = spot.role();
    if (holdsText(role)) return {CaretPlacement::Blank, std::move(spot)};
    if (!isParagraph(role)) return {};
    const ParagraphReference paragraph = paragraphOf(spot);
    const sal_Int32 index = paragraph->getIndexAtPoint(spot.point);
    if (index < 0) return {CaretPlacement::Blank, std::move(spot)};
    const bool isChosen = isSelected(paragraph, index);
    return {isChosen ? CaretPlacement::InSelection : CaretPlacement::InText, std::move(spot), index};
}

CaretTarget CaretPlacer::findInCells(AccessibleSpot spot) {
    while (spot.role() != a11y::AccessibleRole::TABLE_CELL && goInto(spot)) {
    }
    if (spot.role() != a11y::AccessibleRole::TABLE_CELL) return {};
    return {CaretPlacement::InCells, std::move(spot)};
}

bool CaretPlacer::place(const CaretTarget& target) {
    if (target.placement == CaretPlacement::InCells) target.spot.area->grabFocus();
    if (target.placement != CaretPlacement::InText) return true;
    return paragraphOf(target.spot)->setCaretPosition(target.character);
}

NearestCaret CaretPlacer::nearestCaret(const CaretTarget& target) {
    AccessibleSpot spot = target.spot;
    if (!goToNearestParagraph(spot)) return {};
    const ParagraphReference paragraph = paragraphOf(spot);
    return {paragraph->getCaretPosition(), characterNear(paragraph, spot.point)};
}

css::awt::Rectangle CaretPlacer::caretAt(const CaretTarget& target) {
    const bool isBlank = target.placement == CaretPlacement::Blank;
    if (target.placement != CaretPlacement::InText && !isBlank) return {};
    AccessibleSpot spot = target.spot;
    if (isBlank && !goToNearestParagraph(spot)) return {};
    const ParagraphReference paragraph = paragraphOf(spot);
    css::awt::Rectangle caret =
        isBlank ? caretNear(paragraph, spot.point) : caretBefore(paragraph, target.character);
    caret.X += spot.origin.X;
    caret.Y += spot.origin.Y;
    return caret;
}

}  // namespace mergeloom::libreoffice
