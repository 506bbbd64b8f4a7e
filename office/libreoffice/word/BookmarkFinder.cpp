#include "office/libreoffice/word/BookmarkFinder.h"

#include "base/Text.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/StoryOrder.h"
#include "office/libreoffice/word/TableCells.h"

#include <algorithm>
#include <com/sun/star/container/NoSuchElementException.hpp>
#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <utility>

namespace mergeloom::libreoffice {

/// A range whose bookmarks are asked for, and what was found so far.
struct BookmarkFinder::Question {
    const TrackedRange& range;
    TextPlace start = range.start();
    TextPlace end = range.end();
    bool isCaret = range.isCaret();
    std::vector<LiveBookmark> found = {};
    std::optional<TableReference> tableBefore = {};
    Gap gap = {};
    bool isClear = true;    ///< no bookmark starts or ends at the range or in it
    bool encloses = false;  ///< the bookmark that was compared last reaches over the start or the end

    [[nodiscard]] const TextReference& story() const { return range.story; }

    [[nodiscard]] bool holds(const std::string& name) const {
        return std::ranges::find(found, name, &LiveBookmark::name) != found.end();
    }

    /// Returns the table that ends where the range starts, or none.
    const TableReference& table() {
        if (!tableBefore) tableBefore = isCaret ? libreoffice::tableBefore(start.at) : TableReference();
        return *tableBefore;
    }
};

void BookmarkFinder::forget() {
    isLearnt_ = false;
    gap_.reset();
}

/// Returns the reach of a bookmark of the body.
BookmarkFinder::Reach BookmarkFinder::reachOf(const RangeReference& anchor,
                                              const RangeReference& next) const {
    const bool endsBefore = !next.is() || order::compareStarts(model_.body, anchor->getEnd(), next) <= 0;
    return endsBefore ? Reach::Itself : Reach::Others;
}

/// Bookmarks of other stories are listed before those of the body, so the search for them ends at the first
/// one of the body.
void BookmarkFinder::learn() {
    if (isLearnt_) return;
    std::vector<std::string> names;
    for (const OUString& name : model_.bookmarks->getElementNames())
        names.push_back(fromUno(name));
    names.emplace_back();
    RangeReference next;
    bool isInBody = false;
    for (std::size_t index = 0; index + 1 < names.size(); ++index) {
        RangeReference anchor = std::exchange(next, RangeReference());
        const auto known = apart_.find(names[index]);
        if (known != apart_.end() && known->second == names[index + 1]) continue;
        const auto number = static_cast<sal_Int32>(index);
        if (!anchor.is()) anchor = anchorOf(model_.bookmarksByPlace->getByIndex(number));
        if (index + 2 < names.size()) next = anchorOf(model_.bookmarksByPlace->getByIndex(number + 1));
        isInBody = isInBody || order::holds(model_.body, anchor);
        const Reach reach = isInBody ? reachOf(anchor, next) : Reach::OtherStory;
        if (reach == Reach::Itself) apart_[names[index]] = names[index + 1];
        if (reach == Reach::Others) wide_.insert(names[index]);
        if (reach == Reach::OtherStory) elsewhere_.insert(names[index]);
    }
    isLearnt_ = true;
}

std::vector<LiveBookmark> BookmarkFinder::touching(const TrackedRange& range) {
    learn();
    if (!model_.bookmarksByPlace->hasElements()) return {};
    if (auto known = inGap(range)) return *known;
    Question question{range};
    std::vector<LiveBookmark> found = search(question);
    const bool isGap = question.isClear && range.isPlain() && range.story.get() == model_.body.get();
    gap_ = isGap ? std::optional(question.gap) : std::nullopt;
    return found;
}

std::vector<LiveBookmark> BookmarkFinder::search(Question& question) {
    if (question.story().get() == model_.body.get()) {
        const sal_Int32 after = firstAfter(question);
        if (after < model_.bookmarksByPlace->getCount())
            question.gap.high = Bound{anchorOf(model_.bookmarksByPlace->getByIndex(after)), true};
        searchBackwards(question, after - 1);
    }
    searchWide(question);
    std::vector<LiveBookmark>& found = question.found;
    for (LiveBookmark& bookmark : found)
        bookmark.beyond = bookmarks_.beyondOf(bookmark.name, bookmark.anchor);
    std::ranges::stable_sort(found, [&](const LiveBookmark& one, const LiveBookmark& other) {
        const int starts = order::compareStarts(question.story(), one.anchor, other.anchor);
        return starts != 0 ? starts < 0 : order::compareEnds(question.story(), one.anchor, other.anchor) > 0;
    });
    return found;
}

/// Returns the number of the first bookmark that starts after the question's range.
sal_Int32 BookmarkFinder::firstAfter(const Question& question) const {
    sal_Int32 first = 0;
    sal_Int32 count = model_.bookmarksByPlace->getCount();
    while (count > 0) {
        const sal_Int32 middle = first + count / 2;
        const RangeReference anchor = anchorOf(model_.bookmarksByPlace->getByIndex(middle));
        // Those of other stories come before those of the body.
        const bool isAfter = order::holds(model_.body, anchor) &&
                             order::compareStarts(model_.body, anchor, question.end.at) > 0;
        if (!isAfter) {
            first = middle + 1;
            count -= count / 2 + 1;
        } else {
            count /= 2;
        }
    }
    return first;
}

void BookmarkFinder::searchBackwards(Question& question, sal_Int32 index) {
    for (; index >= 0; --index) {
        LiveBookmark bookmark = bookmarks_.of(model_.bookmarksByPlace->getByIndex(index));
        if (!order::holds(model_.body, bookmark.anchor)) return;
        const Relation relation = relationOf(question, bookmark);
        narrow(question, bookmark, relation);
        if (relation == Relation::Touching) question.found.push_back(bookmark);
        if (relation == Relation::Before) return;
    }
}

/// Those of other stories are in no order that would help.
void BookmarkFinder::searchWide(Question& question) {
    const bool isInBody = question.story().get() == model_.body.get();
    std::set<std::string>& names = isInBody ? wide_ : elsewhere_;
    for (auto name = names.begin(); name != names.end();) {
        try {
            const LiveBookmark bookmark{*name, anchorOf(model_.bookmarks->getByName(toUno(*name)))};
            if (isInBody || order::holds(question.story(), bookmark.anchor)) take(question, bookmark);
            ++name;
        } catch (const css::lang::IllegalArgumentException&) {
            ++name;  // It has moved to another story.
        } catch (const css::container::NoSuchElementException&) {
            name = names.erase(name);
        }
    }
}

void BookmarkFinder::take(Question& question, LiveBookmark bookmark) {
    if (question.holds(bookmark.name)) return;
    const Relation relation = relationOf(question, bookmark);
    narrow(question, bookmark, relation);
    if (relation == Relation::Touching) question.found.push_back(std::move(bookmark));
}

BookmarkFinder::Relation BookmarkFinder::relationOf(Question& question, LiveBookmark& bookmark) {
    const TextReference& story = question.story();
    int startToEnd = order::compareStarts(story, bookmark.anchor, question.end.at);
    if (startToEnd == 0 && question.end.beyond != Beyond::Nothing) startToEnd = -1;
    if (question.isCaret ? startToEnd > 0 : startToEnd >= 0) return Relation::After;
    int endToStart = order::compareEnds(story, bookmark.anchor, question.start.at);
    const bool mayReachFurther =
        endToStart == 0 ? question.start.beyond != Beyond::Nothing : endToStart < 0 && question.table().is();
    if (mayReachFurther) {
        const Beyond beyond = bookmarks_.beyondOf(bookmark.name, bookmark.anchor);
        endToStart = order::compare(story, {bookmark.anchor->getEnd(), beyond}, question.start);
    }
    question.encloses = startToEnd < 0 && endToStart > 0;
    if (endToStart != 0) return endToStart < 0 ? Relation::Before : Relation::Touching;
    const bool isTouching =
        question.isCaret || order::compareStarts(story, bookmark.anchor, question.start.at) == 0;
    return isTouching ? Relation::Touching : Relation::Before;
}

/// Narrows the gap around the question's range by a bookmark.
void BookmarkFinder::narrow(Question& question, const LiveBookmark& bookmark, Relation relation) {
    if (relation == Relation::After) {
        const bool isApart = order::compareStarts(question.story(), bookmark.anchor, question.end.at) > 0;
        if (!isApart) question.isClear = false;
        return narrowHigh(question, {bookmark.anchor, true});
    }
    if (relation == Relation::Touching) {
        const bool reachesOver =
            question.encloses &&
            (question.isCaret ||
             (order::compareStarts(question.story(), bookmark.anchor, question.start.at) < 0 &&
              order::compareEnds(question.story(), bookmark.anchor, question.end.at) > 0));
        if (!reachesOver) {
            question.isClear = false;
            return;
        }
        question.gap.around.push_back(bookmark);
        narrowLow(question, {bookmark.anchor, true});
        narrowHigh(question, {bookmark.anchor, false});
        return;
    }
    if (order::compareStarts(question.story(), bookmark.anchor->getEnd(), question.start.at) >= 0)
        question.isClear = false;
    const RangeReference former = question.gap.low ? question.gap.low->anchor : RangeReference();
    narrowLow(question, {bookmark.anchor, false});
    if (question.gap.low->anchor.get() == former.get()) return;
    const bool isOverTable = bookmarks_.beyondOf(bookmark.name, bookmark.anchor) == Beyond::Table;
    question.gap.tableBefore = isOverTable ? tableAt(bookmark.anchor->getEnd()) : TableReference();
}

namespace {

RangeReference placeOf(const auto& bound) {
    return bound.isStart ? bound.anchor->getStart() : bound.anchor->getEnd();
}

int compareBounds(const TextReference& story, const auto& one, const auto& other) {
    if (one.isStart != other.isStart) return order::compareStarts(story, placeOf(one), placeOf(other));
    return one.isStart ? order::compareStarts(story, one.anchor, other.anchor)
                       : order::compareEnds(story, one.anchor, other.anchor);
}

}  // namespace

void BookmarkFinder::narrowLow(Question& question, const Bound& bound) const {
    std::optional<Bound>& low = question.gap.low;
    if (!low || compareBounds(question.story(), *low, bound) <= 0) low = bound;
}

void BookmarkFinder::narrowHigh(Question& question, const Bound& bound) const {
    std::optional<Bound>& high = question.gap.high;
    if (!high || compareBounds(question.story(), *high, bound) > 0) high = bound;
}

/// Returns less than 0 when the range starts after the gap's low bound.
int BookmarkFinder::lowAgainst(const TrackedRange& range) const {
    if (!gap_->low) return -1;
    return gap_->low->isStart ? order::compareStarts(model_.body, gap_->low->anchor, rangeOf(range.cursor))
                              : order::compareEnds(model_.body, gap_->low->anchor, range.cursor->getStart());
}

bool BookmarkFinder::isInGap(const TrackedRange& range, int low) const {
    if (low > 0 || (low == 0 && !gap_->atLow)) return false;
    if (!gap_->high) return true;
    return gap_->high->isStart
               ? order::compareStarts(model_.body, gap_->high->anchor, range.cursor->getEnd()) > 0
               : order::compareEnds(model_.body, gap_->high->anchor, rangeOf(range.cursor)) > 0;
}

std::optional<std::vector<LiveBookmark>> BookmarkFinder::inGap(const TrackedRange& range) const {
    if (!gap_ || range.endBeyond == Beyond::Table || range.story.get() != model_.body.get())
        return std::nullopt;
    const int low = lowAgainst(range);
    if (!isInGap(range, low)) return std::nullopt;
    if (gap_->tableBefore.is() && range.isCaret() &&
        isSameTable(tableBefore(range.cursor->getStart()), gap_->tableBefore))
        return std::nullopt;
    std::vector<LiveBookmark> found = gap_->around;
    if (low == 0 && range.isCaret()) found.push_back(*gap_->atLow);
    return found;
}

void BookmarkFinder::put(const std::string& name, const TrackedRange& range) {
    const bool isNew = bookmarks_.names().find(name).empty();
    learn();
    if (!isNew) gap_.reset();
    apart_.erase(name);
    const bool isInBody = range.story.get() == model_.body.get();
    const bool splitsGap = gap_ && range.isPlain() && isInBody && isInGap(range, lowAgainst(range)) &&
                           !range.cursor->isCollapsed();
    std::vector<LiveBookmark> met = splitsGap ? std::vector<LiveBookmark>{} : touching(range);
    std::erase_if(met, [&](const LiveBookmark& bookmark) { return equalsIgnoringCase(bookmark.name, name); });
    const RangeReference anchor = bookmarks_.put(name, range);
    if (splitsGap) {
        for (const LiveBookmark& around : gap_->around)
            wide_.insert(around.name);
        gap_->low = Bound{anchor, false};
        gap_->atLow = LiveBookmark{name, anchor};
        gap_->tableBefore.clear();
        return;
    }
    putOuterAgain(range, met);
    noteWide(name, range, met);
    gap_.reset();
}

/// Adds the outer bookmarks at the place again: of those that begin at one place, Writer takes the one that
/// was added last for the outermost.
void BookmarkFinder::putOuterAgain(const TrackedRange& range, const std::vector<LiveBookmark>& met) {
    for (auto outer = met.rbegin(); outer != met.rend(); ++outer) {
        const RangeReference cursor = rangeOf(range.cursor);
        if (order::compareStarts(range.story, outer->anchor, cursor) != 0) continue;
        if (order::compareEnds(range.story, outer->anchor, cursor) <= 0) continue;
        const CursorReference place = cursorOver(outer->anchor);
        bookmarks_.put(outer->name, {range.story, place, Beyond::Nothing, outer->beyond});
    }
}

/// Bookmarks that only touch one another are not wide, since many places are side by side.
void BookmarkFinder::noteWide(const std::string& name, const TrackedRange& range,
                              const std::vector<LiveBookmark>& met) {
    if (range.story.get() != model_.body.get()) {
        elsewhere_.insert(name);
        return;
    }
    const RangeReference put = rangeOf(range.cursor);
    if (range.endBeyond != Beyond::Nothing) wide_.insert(name);
    for (const LiveBookmark& bookmark : met) {
        const int starts = order::compareStarts(range.story, bookmark.anchor, put);
        if (starts >= 0 && order::compareStarts(range.story, bookmark.anchor, range.cursor->getEnd()) < 0)
            wide_.insert(name);
        const bool reachesOver =
            bookmark.beyond != Beyond::Nothing ||
            (starts <= 0 && order::compareStarts(range.story, bookmark.anchor->getEnd(), put) > 0);
        if (reachesOver) wide_.insert(bookmark.name);
    }
}

}  // namespace mergeloom::libreoffice
