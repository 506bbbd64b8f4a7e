#include "office/graft/MarkReplay.h"

#include "office/graft/LinePartners.h"
#include "office/graft/Refusal.h"
#include "office/graft/SequenceAlignment.h"

#include <algorithm>
#include <optional>

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

struct MarkPlace {
    LinePlace start;
    LinePlace end;

    friend bool operator==(const MarkPlace&, const MarkPlace&) = default;
};

MarkPlace placeOf(const std::vector<Line>& lines, const BookmarkRecord& mark) {
    return {graft::placeOf(lines, startOf(mark)), graft::placeOf(lines, endOf(mark))};
}

/// Returns the place in other lines, or none if its lines have no partners there.
std::optional<MarkPlace> translated(MarkPlace place, const std::vector<std::size_t>& partners) {
    for (LinePlace* end : {&place.start, &place.end}) {
        end->line = partners[end->line];
        if (end->line == kNoPartner) return {};
    }
    return place;
}

}  // namespace

MarkReplay::MarkReplay(embedded::WordContent& content, WordExport& baseline, WordExport& edited)
    : content_(content), baseline_(baseline), edited_(edited) {
    for (const BookmarkRecord* record : content.bookmarks().withHidden())
        existing_.insert(record->name);
}

void MarkReplay::prepare(embedded::Story& original, const ReadStory& former) {
    std::vector<Line> lines = LineReader().read(original);
    const std::vector<std::size_t> partners = partnersByText(former.lines, lines);
    for (const BookmarkRecord* mark : marksOf(former)) {
        const BookmarkRecord* const own = content_.bookmarks().find(mark->name);
        const bool agrees = own != nullptr && own->story == &original &&
                            translated(placeOf(former.lines, *mark), partners) == placeOf(lines, *own);
        if (agrees) agreeing_.insert(mark->name);
    }
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
    std::vector<Line> lines = LineReader().read(original);
    const std::vector<std::size_t> partners = partnersByText(now.lines, lines);
    for (const BookmarkRecord* mark : marksOf(now)) {
        const BookmarkRecord* const own = content_.bookmarks().find(mark->name);
        const bool stays = isUntouched(*mark, former, now, difference);
        const std::optional<MarkPlace> place = translated(placeOf(now.lines, *mark), partners);
        // New text beside a bookmark may have become part of it.
        const bool isDisplaced =
            own != nullptr && agreeing_.contains(mark->name) && place != placeOf(lines, *own);
        if (own != nullptr && stays && !isDisplaced) continue;
        // The office did not read it, or read it with another text.
        if (own == nullptr && stays && !existing_.contains(mark->name)) continue;
        if (!place)
            throw Refusal("the place “" + mark->name +
                          "” is in text that LibreOffice reads differently from the file");
        const CharacterPosition from = lastPositionOf(lines, place->start);
        const bool isEmpty = place->start == place->end;
        const CharacterPosition to = std::max(from, isEmpty ? from : firstPositionOf(lines, place->end));
        content_.addBookmark(mark->name, original, from, to);
    }
}

}  // namespace mergeloom::graft
