#include "office/libreoffice/host/AccessibleSpot.h"

#include <algorithm>
#include <com/sun/star/accessibility/AccessibleRole.hpp>
#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/lang/IndexOutOfBoundsException.hpp>
#include <optional>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

using css::awt::Point;

namespace a11y = css::accessibility;

Reference<a11y::XAccessibleContext> contextOf(const Reference<css::uno::XInterface>& object) {
    const Reference<a11y::XAccessible> accessible(object, UNO_QUERY);
    return accessible.is() ? accessible->getAccessibleContext() : Reference<a11y::XAccessibleContext>();
}

/// Returns how far a coordinate is outside of a stretch; 0 inside.
sal_Int32 distance(sal_Int32 at, sal_Int32 start, sal_Int32 length) {
    return std::max({start - at, at - (start + length), sal_Int32{0}});
}

/// A child, and its distance from the point, across the lines first.
struct Candidate {
    AccessibleSpot spot;
    std::pair<sal_Int32, sal_Int32> distance;
};

/// Below a paragraph, the end of its last line is nearest, as for a click in Writer.
Candidate candidateOf(AccessibleSpot child) {
    const css::awt::Size size = child.area->getSize();
    const std::pair away(distance(child.point.Y, 0, size.Height), distance(child.point.X, 0, size.Width));
    if (isParagraph(child.role()) && child.point.Y >= size.Height) child.point.X = size.Width;
    child.point.X = std::clamp(child.point.X, sal_Int32{0}, std::max(size.Width - 1, sal_Int32{0}));
    child.point.Y = std::clamp(child.point.Y, sal_Int32{0}, std::max(size.Height - 1, sal_Int32{0}));
    return {std::move(child), away};
}

/// Returns none when the child has gone since the children were counted: the office lays out its text
/// meanwhile.
Reference<a11y::XAccessible> childOf(const AccessibleSpot& spot, sal_Int32 index) {
    try {
        return spot.object->getAccessibleChild(index);
    } catch (const css::lang::IndexOutOfBoundsException&) {
        return {};
    }
}

std::optional<Candidate> nearestChild(const AccessibleSpot& spot) {
    std::optional<Candidate> nearest;
    const sal_Int32 count = spot.object->getAccessibleChildCount();
    for (sal_Int32 index = 0; index < count; ++index) {
        AccessibleSpot child = spotInPart(spot, childOf(spot, index));
        if (!child.area.is()) continue;
        const sal_Int16 role = child.role();
        if (!isParagraph(role) && !holdsText(role)) continue;
        Candidate candidate = candidateOf(std::move(child));
        if (!nearest || candidate.distance < nearest->distance) nearest = std::move(candidate);
    }
    return nearest;
}

}  // namespace

bool isDocument(sal_Int16 role) {
    return role == a11y::AccessibleRole::DOCUMENT_TEXT || role == a11y::AccessibleRole::DOCUMENT_SPREADSHEET;
}

bool isParagraph(sal_Int16 role) {
    return role == a11y::AccessibleRole::PARAGRAPH || role == a11y::AccessibleRole::HEADING;
}

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

AccessibleSpot spotIn(const Reference<css::uno::XInterface>& window, css::awt::Point point) {
    const Reference<a11y::XAccessibleContext> context = contextOf(window);
    return {context, {context, UNO_QUERY}, point, {}};
}

AccessibleSpot spotInPart(const AccessibleSpot& whole, const Reference<css::uno::XInterface>& part) {
    AccessibleSpot spot = spotIn(part, whole.point);
    spot.origin = whole.origin;
    if (!spot.area.is()) return spot;
    const css::awt::Rectangle bounds = spot.area->getBounds();
    spot.point = spot.point - Point(bounds.X, bounds.Y);
    spot.origin = spot.origin + Point(bounds.X, bounds.Y);
    return spot;
}

bool goInto(AccessibleSpot& spot) {
    if (!spot.area.is()) return false;
    const Reference<a11y::XAccessible> child = spot.area->getAccessibleAtPoint(spot.point);
    if (!child.is()) return false;
    AccessibleSpot inner = spotInPart(spot, child);
    if (!inner.object.is() || inner.object == spot.object) return false;
    spot = std::move(inner);
    return true;
}

bool goToNearestParagraph(AccessibleSpot& spot) {
    while (!isParagraph(spot.role())) {
        std::optional<Candidate> nearest = nearestChild(spot);
        if (!nearest) return false;
        spot = std::move(nearest->spot);
    }
    return true;
}

}  // namespace mergeloom::libreoffice
