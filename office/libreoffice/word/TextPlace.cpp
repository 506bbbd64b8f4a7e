#include "office/libreoffice/word/TextPlace.h"

#include <com/sun/star/beans/XPropertySet.hpp>

namespace mergeloom::libreoffice {

TextPlace TrackedRange::start() const {
    if (!table.is()) return {cursor->getStart(), startBeyond};
    const TextReference first(table->getCellByName(table->getCellNames()[0]), UNO_QUERY_THROW);
    const CursorReference start = first->createTextCursor();
    start->gotoStart(false);
    return {start->getStart()};
}

TextReference textAt(const RangeReference& place) {
    TextReference cell;
    Reference<css::beans::XPropertySet>(place, UNO_QUERY_THROW)->getPropertyValue("Cell") >>= cell;
    return cell.is() ? cell : place->getText();
}

CursorReference cursorOver(const RangeReference& range) {
    try {
        CursorReference cursor = range->getText()->createTextCursorByRange(range);
        if (cursor.is()) return cursor;
    } catch (const css::uno::RuntimeException&) {
        // It is in another cell than its text, or in several.
    }
    const RangeReference start = range->getStart();
    CursorReference cursor = textAt(start)->createTextCursorByRange(start);
    cursor->gotoRange(range->getEnd(), true);
    return cursor;
}

CursorReference cursorOver(const RangeReference& start, const RangeReference& end) {
    CursorReference cursor = cursorOver(start);
    cursor->gotoRange(end, true);
    return cursor;
}

}  // namespace mergeloom::libreoffice
