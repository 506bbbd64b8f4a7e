#include "office/libreoffice/word/WriterBookmark.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/StoryOrder.h"
#include "office/libreoffice/word/StoryPositions.h"
#include "office/libreoffice/word/TableCells.h"
#include "office/libreoffice/word/WriterRange.h"

namespace mergeloom::libreoffice {

namespace {

void check(const StoryPositions& positions, CharacterPosition position) {
    if (position.value >= 0 && position.value <= positions.length().value) return;
    throw AutomationError(kCommandFailed, "The place lies outside the document's text.");
}

/// Where a bookmark that begins in a table ends after it, Writer has it end with the table's last cell.
TextPlace endInTable(const TextPlace& start, const TextPlace& end) {
    const TableReference table = tableAt(start.at);
    if (!table.is() || tableAt(end.at).is()) return end;
    const TableReference before = tableBefore(end.at);
    if (!before.is() || !isSameTable(before, table)) return end;
    return {cursorOverTable(table)->getEnd(), Beyond::Table};
}

CursorReference cursorFor(const TextPlace& start, const TextPlace& end) try {
    return cursorOver(start.at, end.at);
} catch (const css::uno::RuntimeException&) {
    throw AutomationError(kCommandFailed,
                          "LibreOffice cannot mark a text that goes from outside a table into it.");
}

}  // namespace

TrackedRange WriterBookmark::range() const {
    if (found_ && found_->version == content_->bookmarks().version())
        return {found_->story, cursorOver(found_->bookmark.anchor), Beyond::Nothing, found_->bookmark.beyond};
    const LiveBookmark bookmark = content_->bookmarks().get(name_);
    return {content_->storyOf(bookmark.anchor), cursorOver(bookmark.anchor), Beyond::Nothing,
            bookmark.beyond};
}

std::string WriterBookmark::Name() {
    return content_->call([&] {
        const std::string name = content_->bookmarkNames().find(name_);
        if (name.empty()) throw AutomationError(kObjectDeleted, "The bookmark has been deleted.");
        return name;
    });
}

word::RangePtr WriterBookmark::Range() {
    return content_->call([&] { return makeRange(content_, range()); });
}

CharacterPosition WriterBookmark::Start() {
    return Range()->Start();
}

CharacterPosition WriterBookmark::End() {
    return Range()->End();
}

void WriterBookmark::put(const TextReference& story, const TextPlace& start, const TextPlace& end) {
    const TextPlace last = endInTable(start, end);
    content_->addBookmark(name_, {story, cursorFor(start, last), Beyond::Nothing, last.beyond});
}

void WriterBookmark::SetStart(CharacterPosition start) {
    content_->call([&] {
        const TrackedRange former = range();
        const StoryPositions positions(former.story);
        check(positions, start);
        const TextPlace place = positions.placeOf(start);
        const bool isBehind = positions.positionOf(former.end()) < start;
        put(former.story, place, isBehind ? place : former.end());
    });
}

void WriterBookmark::SetEnd(CharacterPosition end) {
    content_->call([&] {
        const TrackedRange former = range();
        const StoryPositions positions(former.story);
        check(positions, end);
        const TextPlace place = positions.placeOf(end);
        const bool isBefore = end < positions.positionOf(former.start());
        put(former.story, isBefore ? place : former.start(), place);
    });
}

void WriterBookmark::moveStart(CharacterCount count) {
    content_->call([&] {
        const TrackedRange former = range();
        const TextPlace start{movedBy(former.cursor->getStart(), count)->getStart()};
        const bool isBehind = order::compare(former.story, former.end(), start) < 0;
        put(former.story, start, isBehind ? start : former.end());
    });
}

void WriterBookmark::moveEnd(CharacterCount count) {
    content_->call([&] {
        const TrackedRange former = range();
        const TextPlace end{movedBy(former.cursor->getEnd(), count)->getStart()};
        const bool isBefore = order::compare(former.story, end, former.start()) < 0;
        put(former.story, isBefore ? end : former.start(), end);
    });
}

void WriterBookmark::Select() {
    content_->call([&] { content_->select(range()); });
}

}  // namespace mergeloom::libreoffice
