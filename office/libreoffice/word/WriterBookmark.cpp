#include "office/libreoffice/word/WriterBookmark.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/WriterRange.h"

#include <algorithm>

namespace mergeloom::libreoffice {

word::RangePtr WriterBookmark::Range() {
    return makeRange(content_, *mark().story, mark().place);
}

void WriterBookmark::SetStart(CharacterPosition start) {
    check(start);
    content_->call([&] { content_->moveMark(*mark_, {start, std::max(start, mark_->place.end)}); });
}

void WriterBookmark::SetEnd(CharacterPosition end) {
    check(end);
    content_->call([&] { content_->moveMark(*mark_, {std::min(mark_->place.start, end), end}); });
}

void WriterBookmark::Select() {
    content_->select({mark().story, mark().place.start, mark().place.end});
}

MarkRecord& WriterBookmark::mark() const {
    if (!mark_->listed) throw AutomationError(kObjectDeleted, "The bookmark has been deleted.");
    return *mark_;
}

void WriterBookmark::check(CharacterPosition position) const {
    if (position.value < 0 || position.value > mark().story->map().length().value) {
        throw AutomationError(kCommandFailed, "The place lies outside the document's text.");
    }
}

}  // namespace mergeloom::libreoffice
