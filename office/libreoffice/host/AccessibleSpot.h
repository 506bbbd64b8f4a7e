#pragma once

#include "office/libreoffice/session/Uno.h"

#include <com/sun/star/accessibility/XAccessibleComponent.hpp>
#include <com/sun/star/accessibility/XAccessibleContext.hpp>
#include <com/sun/star/awt/Point.hpp>

namespace mergeloom::libreoffice {

inline css::awt::Point operator+(const css::awt::Point& left, const css::awt::Point& right) {
    return {left.X + right.X, left.Y + right.Y};
}
inline css::awt::Point operator-(const css::awt::Point& left, const css::awt::Point& right) {
    return {left.X - right.X, left.Y - right.Y};
}

/// An object that the office offers to assistive technology, and a point in the object's own coordinates. All
/// members and functions are to be called within a call of the connection.
struct AccessibleSpot {
    Reference<css::accessibility::XAccessibleContext> object;
    Reference<css::accessibility::XAccessibleComponent> area;  ///< none for an object without a place
    css::awt::Point point;
    css::awt::Point origin;  ///< of the object in the coordinates of the window

    [[nodiscard]] sal_Int16 role() const { return object->getAccessibleRole(); }
};

/// Returns the spot at a point of a window.
AccessibleSpot spotIn(const Reference<css::uno::XInterface>& window, css::awt::Point point);

/// Returns the same spot in another object, which is part of the first one.
AccessibleSpot spotInPart(const AccessibleSpot& whole, const Reference<css::uno::XInterface>& part);

/// Goes to the object in the spot's one at its point. Returns false when no further object is there.
bool goInto(AccessibleSpot& spot);

/// Goes to the paragraph that is nearest to the point, which is in a blank part of a text. Returns false when
/// the text has no paragraph.
bool goToNearestParagraph(AccessibleSpot& spot);

[[nodiscard]] bool isDocument(sal_Int16 role);
[[nodiscard]] bool isParagraph(sal_Int16 role);
/// Returns true if objects of the role hold paragraphs, with blank space between them.
[[nodiscard]] bool holdsText(sal_Int16 role);

}  // namespace mergeloom::libreoffice
