#pragma once

#include "office/libreoffice/host/AccessibleSpot.h"
#include "office/libreoffice/host/ParagraphPlace.h"
#include "office/model/DocumentHost.h"

#include <com/sun/star/awt/Rectangle.hpp>
#include <com/sun/star/awt/XWindow.hpp>
#include <functional>

namespace mergeloom::libreoffice {

/// The kinds of places at a point.
enum class CaretPlacement {
    InText,
    InSelection,  ///< in text that is selected
    InCells,
    OnSheetTab,
    Blank,  ///< the point is in a blank part of a page; a click finds what is next to it
    Nowhere
};

/// The place at a point of the window.
struct CaretTarget {
    CaretPlacement placement = CaretPlacement::Nowhere;
    AccessibleSpot spot;      ///< in the innermost object at the point
    sal_Int32 character = 0;  ///< the one at the point, in a text
};

/// The caret of the paragraph that is nearest to a point. Both are the index of the character after it.
struct NearestCaret {
    sal_Int32 present = -1;  ///< -1 while it is in another paragraph
    sal_Int32 nearest = -1;  ///< the one that would be nearest to the point; -1 without a paragraph
};

/// Clicks in a blank part of a page. The click returns the caret after it. A busy office may handle its
/// events before it receives the click. So the click is repeated if the caret neither moved nor is the
/// nearest one, up to a maximum: in some parts, such as the margins, the office does not move the caret.
void clickUntilMoved(const NearestCaret& before, const std::function<NearestCaret()>& click);

/// Finds the place for a caret or the cell cursor at a point of a window, and puts it there, by the objects
/// that the office offers to assistive technology. A click would do more: open what is under it, or begin a
/// selection. All members are to be called within a call of the connection.
class CaretPlacer {
  public:
    explicit CaretPlacer(const Reference<css::awt::XWindow>& window) : window_(window) {}

    CaretTarget find(HostPoint point);
    /// Puts the caret or the cell cursor there. Does nothing for other targets. Returns false when the office
    /// does not do it.
    static bool place(const CaretTarget& target);
    /// Returns the caret that a click at the target would make, in the window's coordinates; an empty
    /// rectangle when there is no text.
    static css::awt::Rectangle caretAt(const CaretTarget& target);

    /// Returns the caret of the text that is nearest to the target.
    static NearestCaret nearestCaret(const CaretTarget& target);

    /// Returns the area of the window in which the document was found last; empty before.
    [[nodiscard]] const css::awt::Rectangle& documentArea() const { return documentArea_; }
    /// Forgets the document's position in the window, which may change.
    void forget();

  private:
    [[nodiscard]] bool goToDocument(AccessibleSpot& spot);
    [[nodiscard]] bool isInKnownDocument(AccessibleSpot& spot) const;
    [[nodiscard]] static CaretTarget findInText(AccessibleSpot spot);
    [[nodiscard]] static CaretTarget findInCells(AccessibleSpot spot);

    Reference<css::awt::XWindow> window_;
    AccessibleSpot document_;  ///< the one found last; its point is not used
    css::awt::Rectangle documentArea_;
};

}  // namespace mergeloom::libreoffice
