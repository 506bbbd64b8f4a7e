#include "office/embedded/word/EmbeddedBookmarks.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/word/EmbeddedBookmark.h"
#include "office/model/word/Range.h"

#include <algorithm>

namespace mergeloom::embedded {

word::BookmarkPtr EmbeddedBookmarks::Item(int number) {
    return make(*listed()[indexOf(number)]);
}

word::BookmarkPtr EmbeddedBookmarks::Item(const std::string& name) {
    BookmarkRecord* record = find(name);
    if (!record) throw AutomationError(kMemberNotFound, "There is no bookmark named '" + name + "'.");
    return make(*record);
}

word::BookmarkPtr EmbeddedBookmarks::Add(const std::string& name, word::Range& range) {
    Story& story = content_->storyNamed(range.storyName());
    return make(content_->addBookmark(name, story, range.Start(), range.End()));
}

word::BookmarkPtr EmbeddedBookmarks::make(BookmarkRecord& record) {
    return std::make_shared<EmbeddedBookmark>(content_, record);
}

RangeBookmarks::RangeBookmarks(const std::shared_ptr<WordContent>& content, Story& story,
                               CharacterPosition start, CharacterPosition end)
    : EmbeddedBookmarks(content), all_(content->editable(story).finder().in(start, end)) {
    const auto counts = [](const BookmarkRecord* record) { return !record->isHidden(); };
    std::copy_if(all_.begin(), all_.end(), std::back_inserter(listed_), counts);
}

BookmarkRecord* RangeBookmarks::find(const std::string& name) {
    const auto isIt = [&](const BookmarkRecord* record) { return equalsIgnoringCase(record->name, name); };
    const auto found = std::find_if(all_.begin(), all_.end(), isIt);
    return found == all_.end() ? nullptr : *found;
}

}  // namespace mergeloom::embedded
