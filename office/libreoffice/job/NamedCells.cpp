#include "office/libreoffice/job/NamedCells.h"

#include <algorithm>
#include <com/sun/star/accessibility/AccessibleRole.hpp>
#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/accessibility/XAccessibleComponent.hpp>
#include <com/sun/star/accessibility/XAccessibleTable.hpp>
#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/sheet/XViewPane.hpp>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

namespace a11y = css::accessibility;

using Area = css::table::CellRangeAddress;
using css::awt::Rectangle;
using AccessibleReference = Reference<a11y::XAccessibleContext>;
using AccessibleArea = Reference<a11y::XAccessibleComponent>;
using ViewReference = Reference<css::frame::XController>;

Rectangle movedBy(Rectangle box, const Rectangle& origin) {
    box.X += origin.X;
    box.Y += origin.Y;
    return box;
}

bool isEmpty(const Rectangle& box) {
    return box.Width <= 0 || box.Height <= 0;
}

Rectangle between(sal_Int32 left, sal_Int32 top, sal_Int32 right, sal_Int32 bottom) {
    return {left, top, right - left, bottom - top};
}

Rectangle united(const Rectangle& one, const Rectangle& other) {
    return between(std::min(one.X, other.X), std::min(one.Y, other.Y),
                   std::max(one.X + one.Width, other.X + other.Width),
                   std::max(one.Y + one.Height, other.Y + other.Height));
}

Rectangle common(const Rectangle& one, const Rectangle& other) {
    return between(std::max(one.X, other.X), std::max(one.Y, other.Y),
                   std::min(one.X + one.Width, other.X + other.Width),
                   std::min(one.Y + one.Height, other.Y + other.Height));
}

Area common(const Area& one, const Area& other) {
    return {one.Sheet, std::max(one.StartColumn, other.StartColumn), std::max(one.StartRow, other.StartRow),
            std::min(one.EndColumn, other.EndColumn), std::min(one.EndRow, other.EndRow)};
}

bool isEmpty(const Area& area) {
    return area.EndColumn < area.StartColumn || area.EndRow < area.StartRow;
}

AccessibleReference contextOf(const Reference<css::uno::XInterface>& object) {
    const Reference<a11y::XAccessible> accessible(object, UNO_QUERY);
    return accessible.is() ? accessible->getAccessibleContext() : AccessibleReference();
}

AccessibleArea areaOf(const AccessibleReference& context) {
    return {context, UNO_QUERY_THROW};
}

Rectangle boundsOn(const AccessibleArea& whole, const AccessibleArea& part) {
    const css::awt::Point origin = whole->getLocationOnScreen();
    const css::awt::Point place = part->getLocationOnScreen();
    const css::awt::Size size = part->getSize();
    return {place.X - origin.X, place.Y - origin.Y, size.Width, size.Height};
}

/// A part of the view that scrolls by itself. A view that is neither split nor frozen has one.
struct Pane {
    Reference<a11y::XAccessibleTable> cells;
    Rectangle bounds;  ///< in the window
};

/// Adds the panes among the descendants. They are at most two levels below the window of the view.
void addPanes(const AccessibleReference& parent, const AccessibleArea& window, int levels,
              std::vector<Pane>& panes) {
    const auto count = parent->getAccessibleChildCount();
    for (auto index = decltype(count){0}; index < count; ++index) {
        const AccessibleReference child = contextOf(parent->getAccessibleChild(index));
        if (!child.is()) continue;
        const sal_Int16 role = child->getAccessibleRole();
        if (role == a11y::AccessibleRole::DOCUMENT_SPREADSHEET) {
            const AccessibleReference table = contextOf(child->getAccessibleChild(0));
            panes.push_back({{table, UNO_QUERY_THROW}, boundsOn(window, areaOf(child))});
        } else if (levels > 1) {
            addPanes(child, window, levels - 1, panes);
        }
    }
}

std::vector<Pane> panesOf(const ViewReference& view) {
    const Reference<css::frame::XFrame> frame = view->getFrame();
    const AccessibleReference window = contextOf(frame->getContainerWindow());
    const AccessibleReference part = contextOf(frame->getComponentWindow());
    std::vector<Pane> panes;
    constexpr int kLevels = 2;
    if (window.is() && part.is()) addPanes(part, areaOf(window), kLevels, panes);
    return panes;
}

/// Adds the column and the row that are seen in part at the right and lower edges of the view, which Calc
/// does not count as visible.
void addCutCells(std::vector<Area>& areas) {
    sal_Int32 lastColumn = 0;
    sal_Int32 lastRow = 0;
    for (const Area& area : areas) {
        lastColumn = std::max(lastColumn, area.EndColumn);
        lastRow = std::max(lastRow, area.EndRow);
    }
    for (Area& area : areas) {
        if (area.EndColumn == lastColumn) ++area.EndColumn;
        if (area.EndRow == lastRow) ++area.EndRow;
    }
}

/// Returns the cells that the view shows: an area for each pane.
std::vector<Area> shownAreas(const ViewReference& view) {
    const Reference<css::container::XIndexAccess> panes(view, UNO_QUERY_THROW);
    const Reference<css::sheet::XCellRangeAddressable> sheet(
        Reference<css::sheet::XSpreadsheetView>(view, UNO_QUERY_THROW)->getActiveSheet(), UNO_QUERY_THROW);
    std::vector<Area> areas;
    for (sal_Int32 index = 0; index < panes->getCount(); ++index) {
        const Reference<css::sheet::XViewPane> pane(panes->getByIndex(index), UNO_QUERY_THROW);
        areas.push_back(pane->getVisibleRange());
        areas.back().Sheet = sheet->getRangeAddress().Sheet;
    }
    addCutCells(areas);
    return areas;
}

/// Returns the bounds of a cell; empty for one that the pane does not show.
Rectangle cellBounds(const Pane& pane, sal_Int32 row, sal_Int32 column) {
    if (row < 0 || row >= pane.cells->getAccessibleRowCount()) return {};
    if (column < 0 || column >= pane.cells->getAccessibleColumnCount()) return {};
    const AccessibleReference cell = contextOf(pane.cells->getAccessibleCellAt(row, column));
    return cell.is() ? areaOf(cell)->getBounds() : Rectangle();
}

/// Returns the bounds of the area's last cell that the pane shows. The last row and the last column may be
/// those that are not seen even in part.
Rectangle lastBounds(const Pane& pane, const Area& area) {
    for (const auto& [rows, columns] : {std::pair{0, 0}, {0, 1}, {1, 0}, {1, 1}}) {
        const sal_Int32 row = std::max(area.EndRow - rows, area.StartRow);
        const sal_Int32 column = std::max(area.EndColumn - columns, area.StartColumn);
        const Rectangle bounds = cellBounds(pane, row, column);
        if (!isEmpty(bounds)) return bounds;
    }
    return {};
}

/// Returns the bounds of the part of a pane that shows the area; empty for none.
Rectangle boundsIn(const Pane& pane, const Area& area) {
    const Rectangle first = cellBounds(pane, area.StartRow, area.StartColumn);
    if (isEmpty(first)) return first;
    const bool isOneCell = area.StartRow == area.EndRow && area.StartColumn == area.EndColumn;
    const Rectangle whole = isOneCell ? first : united(first, lastBounds(pane, area));
    return movedBy(common(whole, {0, 0, pane.bounds.Width, pane.bounds.Height}), pane.bounds);
}

}  // namespace

css::uno::Sequence<Rectangle> boundsInWindow(const DocumentReference& workbook, const NamedAreas& names) {
    const ViewReference view =
        Reference<css::frame::XModel>(workbook, UNO_QUERY_THROW)->getCurrentController();
    const std::vector<Area> shown = shownAreas(view);
    const std::vector<Pane> panes = panesOf(view);
    std::vector<Rectangle> found;
    for (const auto& [name, area] : names.areas()) {
        for (const Area& part : shown) {
            const Area seen = common(area, part);
            if (area.Sheet != part.Sheet || isEmpty(seen)) continue;
            for (const Pane& pane : panes) {
                const Rectangle bounds = boundsIn(pane, seen);
                if (!isEmpty(bounds)) found.push_back(bounds);
            }
        }
    }
    return {found.data(), static_cast<sal_Int32>(found.size())};
}

}  // namespace mergeloom::libreoffice
