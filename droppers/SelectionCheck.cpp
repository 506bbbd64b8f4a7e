#include "droppers/SelectionCheck.h"

#include "base/AutomationError.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Fields.h"
#include "office/model/word/Range.h"
#include "office/model/word/Table.h"

namespace mergeloom {

namespace {

/// Returns true for the bookmark over the table before a caret: the caret touches it, though nothing is
/// selected.
bool endsWithTableBefore(word::Bookmark& bookmark, word::Range& selected) {
    if (!selected.isEmpty()) return false;
    const word::RangePtr marked = bookmark.Range();
    return marked->compare(word::RangeEnd::End, selected, word::RangeEnd::Start) == 0 &&
           coversSeveralCells(*marked);
}

int heldBookmarks(word::Selection& selection) {
    const word::BookmarksPtr bookmarks = selection.Bookmarks();
    const word::RangePtr selected = selection.Range();
    int held = 0;
    for (int number = 1; number <= bookmarks->Count(); ++number) {
        if (!endsWithTableBefore(*bookmarks->Item(number), *selected)) ++held;
    }
    return held;
}

}  // namespace

bool takesCompositeDrop(word::Selection& selection) {
    const int held = selection.Tables()->Count() + heldBookmarks(selection) + selection.Fields()->Count() +
                     selection.InlineShapes()->Count() + selection.ShapeRange()->Count();
    return held == 0;
}

int cellCount(word::Range& range) {
    try {
        return range.Cells()->Count();
    } catch (const AutomationError&) {
        return 0;
    }
}

bool coversSeveralCells(word::Range& range) {
    return !range.isEmpty() && range.Tables()->Count() > 0 && cellCount(range) > 1;
}

}  // namespace mergeloom
