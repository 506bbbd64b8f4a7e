#include "office/graft/MarkReplay.h"

#include "office/graft/Refusal.h"
#include "office/graft/SequenceAlignment.h"
#include "office/graft/TextReplay.h"

#include <algorithm>

namespace mergeloom::graft {

namespace {

using embedded::BookmarkRecord;

std::vector<const BookmarkRecord*> marksOf(const ReadStory& read) {
    std::vector<const BookmarkRecord*> marks;
    const auto& items = read.story->items();
    for (const embedded::Item* item = items.first(); item != nullptr; item = embedded::ItemTree::next(item)) {
        const bool isStart = item->kind == embedded::ItemKind::BookmarkStart;
        if (isStart && !item->bookmark->isHidden()) marks.push_back(item->bookmark);
    }
    return marks;
}

std::string textOf(const BookmarkRecord& record) {
    return record.story->text(startOf(record), endOf(record));
}

/// Returns true if a present place corresponds to a former one.
bool isSamePlace(LinePlace now, LinePlace former, const ReadStory& formerStory,
                 const StoryDifference& difference) {
    const auto touched = std::ranges::lower_bound(difference.touched, now.line, {}, &TouchedLine::line);
    const bool isTouched = touched != difference.touched.end() && touched->line == now.line;
    if (!isTouched) return difference.formerOfLine[now.line] == former.line && now.unit == former.unit;
    const auto& units = touched->units;
    if (now.unit < units.size() && units[now.unit] == former) return true;
    if (now.unit > 0) {
        const auto& before = units[now.unit - 1];
        return before && before->line == former.line && before->unit + 1 == former.unit;
    }
    if (former.unit > 0) return false;
    const bool isEmptyNow = units.empty() && formerStory.lines[former.line].units.empty();
    return isEmptyNow && touched->mark == former.line;
}

}  // namespace

MarkTexts markTextsOf(embedded::WordContent& content) {
    MarkTexts texts;
    for (const BookmarkRecord* record : content.bookmarks().withHidden())
        texts[record->name] = textOf(*record);
    return texts;
}

void MarkReplay::removeMissing(const ReadStory& former) {
    for (const BookmarkRecord* record : marksOf(former)) {
        if (edited_.content().bookmarks().find(record->name) != nullptr) continue;
        BookmarkRecord* const own = content_.bookmarks().find(record->name);
        if (own == nullptr) continue;
        content_.beginMarking(*own->story, startOf(*own), endOf(*own));
        content_.editable(*own->story).bookmarks.remove(*own);
    }
}

bool MarkReplay::isUntouched(const BookmarkRecord& mark, const ReadStory& former, const ReadStory& now,
                             const StoryDifference& difference) {
    const BookmarkRecord* const before = baseline_.content().bookmarks().find(mark.name);
    if (before == nullptr || before->story != former.story || textOf(*before) != textOf(mark)) return false;
    const auto isSame = [&](CharacterPosition present, CharacterPosition past) {
        return isSamePlace(placeOf(now.lines, present), placeOf(former.lines, past), former, difference);
    };
    return isSame(startOf(mark), startOf(*before)) && isSame(endOf(mark), endOf(*before));
}

void MarkReplay::repeat(embedded::Story& original, const ReadStory& former, const ReadStory& now,
                        const StoryDifference& difference) {
    removeMissing(former);
    const std::vector<Line> lines = LineReader().read(original);
    const std::vector<std::size_t> partners = partnersByText(now.lines, lines);
    for (const BookmarkRecord* mark : marksOf(now)) {
        const BookmarkRecord* const own = content_.bookmarks().find(mark->name);
        const auto text = texts_.find(mark->name);
        const bool stays = isUntouched(*mark, former, now, difference);
        if (own != nullptr && stays) continue;
        // The office did not read it, or read it with another text.
        if (own == nullptr && stays && text == texts_.end()) continue;
        LinePlace start = placeOf(now.lines, startOf(*mark));
        LinePlace end = placeOf(now.lines, endOf(*mark));
        if (partners[start.line] == kNoPartner || partners[end.line] == kNoPartner)
            throw Refusal("the place “" + mark->name +
                          "” is in text that LibreOffice reads differently from the file");
        start.line = partners[start.line];
        end.line = partners[end.line];
        const CharacterPosition from = lastPositionOf(lines, start);
        const CharacterPosition to = std::max(from, start == end ? from : firstPositionOf(lines, end));
        content_.addBookmark(mark->name, original, from, to);
    }
}

}  // namespace mergeloom::graft
