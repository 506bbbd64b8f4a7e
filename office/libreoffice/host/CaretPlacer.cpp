#include "office/libreoffice/host/CaretPlacer.h"

#include <com/sun/star/accessibility/AccessibleRole.hpp>
#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/accessibility/XAccessibleText.hpp>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

namespace a11y = css::accessibility;

using Context = Reference<a11y::XAccessibleContext>;

Context contextOf(const Reference<css::uno::XInterface>& object) {
    const Reference<a11y::XAccessible> accessible(object, UNO_QUERY);
    return accessible.is() ? accessible->getAccessibleContext() : Context();
}

bool isDocument(sal_Int16 role) {
    return role == a11y::AccessibleRole::DOCUMENT_TEXT || role == a11y::AccessibleRole::DOCUMENT_SPREADSHEET;
}

bool isParagraph(sal_Int16 role) {
    return role == a11y::AccessibleRole::PARAGRAPH || role == a11y::AccessibleRole::HEADING;
}

/// Returns whether objects of the role hold paragraphs, with blank space between them.
bool holdsText(sal_Int16 role) {
    switch (role) {
        case a11y::AccessibleRole::DOCUMENT_TEXT:
        case a11y::AccessibleRole::PAGE:
        case a11y::AccessibleRole::HEADER:
        case a11y::AccessibleRole::FOOTER:
        case a11y::AccessibleRole::FOOTNOTE:
        case a11y::AccessibleRole::END_NOTE:
        case a11y::AccessibleRole::TABLE:
        case a11y::AccessibleRole::TABLE_CELL:
        case a11y::AccessibleRole::TEXT_FRAME:
            return true;
        default:
            return false;
    }
}

}  // namespace

CaretPlacer::Spot CaretPlacer::spotOf(const Reference<css::uno::XInterface>& object, css::awt::Point around) {
    Spot spot{contextOf(object), {}, around};
    spot.area.set(spot.object, UNO_QUERY);
    if (!spot.area.is()) return spot;
    const css::awt::Rectangle bounds = spot.area->getBounds();
    spot.point.X -= bounds.X;
    spot.point.Y -= bounds.Y;
    return spot;
}

/// Returns false when no further object is at the point.
bool CaretPlacer::goInto(Spot& spot) {
    if (!spot.area.is()) return false;
    const Reference<a11y::XAccessible> child = spot.area->getAccessibleAtPoint(spot.point);
    if (!child.is()) return false;
    Spot inner = spotOf(child, spot.point);
    if (!inner.object.is() || inner.object == spot.object) return false;
    spot = std::move(inner);
    return true;
}

bool CaretPlacer::isInKnownDocument(Spot& spot) const {
    if (!document_.area.is()) return false;
    const css::awt::Point window = spot.area->getLocationOnScreen();
    const css::awt::Point document = document_.area->getLocationOnScreen();
    const css::awt::Point point(spot.point.X + window.X - document.X, spot.point.Y + window.Y - document.Y);
    if (!document_.area->containsPoint(point)) return false;
    spot = {document_.object, document_.area, point};
    return true;
}

bool CaretPlacer::goToDocument(Spot& spot) {
    if (isInKnownDocument(spot)) return true;
    while (goInto(spot)) {
        role_ = spot.object->getAccessibleRole();
        if (!isDocument(role_)) continue;
        document_ = spot;
        return true;
    }
    return false;
}

CaretPlacement CaretPlacer::place(HostPoint point) {
    Spot spot{contextOf(window_), {}, css::awt::Point(point.x, point.y)};
    spot.area.set(spot.object, UNO_QUERY);
    if (!spot.area.is() || !goToDocument(spot)) return CaretPlacement::Nowhere;
    const bool isText = role_ == a11y::AccessibleRole::DOCUMENT_TEXT;
    return isText ? placeInText(std::move(spot)) : placeInCells(std::move(spot));
}

CaretPlacement CaretPlacer::placeInText(Spot spot) {
    sal_Int16 role = a11y::AccessibleRole::DOCUMENT_TEXT;
    while (holdsText(role) && goInto(spot))
        role = spot.object->getAccessibleRole();
    if (holdsText(role)) return CaretPlacement::Blank;
    if (!isParagraph(role)) return CaretPlacement::Nowhere;
    const Reference<a11y::XAccessibleText> text(spot.object, UNO_QUERY_THROW);
    const sal_Int32 index = text->getIndexAtPoint(spot.point);
    if (index < 0) return CaretPlacement::Blank;
    return text->setCaretPosition(index) ? CaretPlacement::InText : CaretPlacement::Blank;
}

CaretPlacement CaretPlacer::placeInCells(Spot spot) {
    sal_Int16 role = a11y::AccessibleRole::DOCUMENT_SPREADSHEET;
    while (role != a11y::AccessibleRole::TABLE_CELL && goInto(spot))
        role = spot.object->getAccessibleRole();
    if (role != a11y::AccessibleRole::TABLE_CELL) return CaretPlacement::Nowhere;
    spot.area->grabFocus();
    return CaretPlacement::InCells;
}

}  // namespace mergeloom::libreoffice
