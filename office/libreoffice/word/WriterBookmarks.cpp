#include "office/libreoffice/word/WriterBookmarks.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/word/WriterBookmark.h"
#include "office/model/word/Range.h"

#include <algorithm>
#include <iterator>

namespace mergeloom::libreoffice {

word::BookmarkPtr WriterBookmarks::Item(int number) {
    const std::vector<MarkPtr> marks = listed();
    if (number < 1 || number > static_cast<int>(marks.size())) {
        throw AutomationError(kMemberNotFound, "There is no bookmark number " + std::to_string(number) + ".");
    }
    return std::make_shared<WriterBookmark>(content_, marks[static_cast<std::size_t>(number) - 1]);
}

word::BookmarkPtr WriterBookmarks::Item(const std::string& name) {
    const MarkPtr mark = find(name);
    if (!mark) throw AutomationError(kMemberNotFound, "There is no bookmark named '" + name + "'.");
    return std::make_shared<WriterBookmark>(content_, mark);
}

word::BookmarkPtr WriterBookmarks::Add(const std::string& name, word::Range& range) {
    const MarkPtr mark = content_->call([&] {
        return content_->addMark(name, content_->storyNamed(range.storyName()), {range.Start(), range.End()});
    });
    return std::make_shared<WriterBookmark>(content_, mark);
}

std::int64_t WriterBookmarks::firstFreeCounter(const std::string& stem) {
    return content_->call([&] { return content_->marks().firstFreeCounter(stem); });
}

std::vector<MarkPtr> DocumentBookmarks::listed() {
    return content().call([&] { return content().marks().inNameOrder(); });
}

MarkPtr DocumentBookmarks::find(const std::string& name) {
    return content().call([&] { return content().marks().find(name); });
}

RangeBookmarks::RangeBookmarks(const std::shared_ptr<WriterContent>& content, const LiveStretch& stretch)
    : WriterBookmarks(content), all_(stretch.story->map().marksIn({stretch.start, stretch.end})) {
    const auto counts = [](const MarkPtr& mark) { return !mark->isHidden(); };
    std::ranges::copy_if(all_, std::back_inserter(listed_), counts);
}

MarkPtr RangeBookmarks::find(const std::string& name) {
    const auto isIt = [&](const MarkPtr& mark) { return equalsIgnoringCase(mark->name, name); };
    const auto found = std::ranges::find_if(all_, isIt);
    return found == all_.end() ? nullptr : *found;
}

}  // namespace mergeloom::libreoffice
