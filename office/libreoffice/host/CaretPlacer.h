#pragma once

#include "office/libreoffice/session/Uno.h"
#include "office/model/DocumentHost.h"

#include <com/sun/star/accessibility/XAccessibleComponent.hpp>
#include <com/sun/star/accessibility/XAccessibleContext.hpp>
#include <com/sun/star/awt/XWindow.hpp>

namespace mergeloom::libreoffice {

/// The result of placing a caret at a point.
enum class CaretPlacement {
    InText,
    InCells,
    Blank,  ///< the point is in a blank part of a page; a click finds what is next to it
    Nowhere
};

/// Puts the caret or the cell cursor at a point of a window, by the objects that the office offers to
/// assistive technology. A click would do more: open what is under it, or begin a selection. All members are
/// to be called within a call of the connection.
class CaretPlacer {
  public:
    explicit CaretPlacer(const Reference<css::awt::XWindow>& window) : window_(window) {}

    CaretPlacement place(HostPoint point);
    /// Forgets the document's position in the window, which may change.
    void forget() { document_ = {}; }

  private:
    /// An object, and the point in its own coordinates.
    struct Spot {
        Reference<css::accessibility::XAccessibleContext> object;
        Reference<css::accessibility::XAccessibleComponent> area;
        css::awt::Point point;
    };

    [[nodiscard]] static Spot spotOf(const Reference<css::uno::XInterface>& object, css::awt::Point around);
    [[nodiscard]] static bool goInto(Spot& spot);
    [[nodiscard]] bool goToDocument(Spot& spot);
    [[nodiscard]] bool isInKnownDocument(Spot& spot) const;
    [[nodiscard]] static CaretPlacement placeInText(Spot spot);
    [[nodiscard]] static CaretPlacement placeInCells(Spot spot);

    Reference<css::awt::XWindow> window_;
    Spot document_;  ///< the one found last; its point is not used
    sal_Int16 role_ = 0;
};

}  // namespace mergeloom::libreoffice
