#include "office/embedded/word/EmbeddedBookmark.h"

#include "base/AutomationError.h"
#include "office/embedded/word/EmbeddedRange.h"

namespace mergeloom::embedded {

word::RangePtr EmbeddedBookmark::Range() {
    return std::make_shared<EmbeddedRange>(content_, *record().story, Start(), End());
}

void EmbeddedBookmark::SetStart(CharacterPosition start) {
    BookmarkRecord& bookmark = record();
    content_->beginMarking(*bookmark.story, start, start);
    editor().moveStart(bookmark, start);
}

void EmbeddedBookmark::SetEnd(CharacterPosition end) {
    BookmarkRecord& bookmark = record();
    content_->beginMarking(*bookmark.story, end, end);
    editor().moveEnd(bookmark, end);
}

void EmbeddedBookmark::Select() {
    content_->selection().moveTo(*record().story, Start(), End());
}

BookmarkRecord& EmbeddedBookmark::record() const {
    if (!record_->listed) throw AutomationError(kObjectDeleted, "The bookmark has been deleted.");
    return *record_;
}

BookmarkEditor& EmbeddedBookmark::editor() {
    return content_->editable(*record().story).bookmarks();
}

}  // namespace mergeloom::embedded
