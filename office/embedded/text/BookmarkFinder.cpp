#include "office/embedded/text/BookmarkFinder.h"

#include <algorithm>

namespace mergeloom::embedded {

namespace {

/// The number of marks that a search may pass before its result is worth remembering.
constexpr int kFar = 64;

bool overlaps(const BookmarkRecord& record, CharacterPosition start, CharacterPosition end) {
    const CharacterPosition first = startOf(record);
    const CharacterPosition last = endOf(record);
    if (start == end) return first <= start && start <= last;
    if (first == last) return start <= first && first < end;
    return first < end && start < last;
}

std::vector<BookmarkRecord*> inPlaceOrder(const std::unordered_set<BookmarkRecord*>& records,
                                          CharacterPosition start, CharacterPosition end) {
    std::vector<BookmarkRecord*> ordered;
    for (BookmarkRecord* record : records) {
        if (overlaps(*record, start, end)) ordered.push_back(record);
    }
    std::sort(ordered.begin(), ordered.end(), [](const BookmarkRecord* a, const BookmarkRecord* b) {
        const CharacterPosition first = startOf(*a);
        const CharacterPosition second = startOf(*b);
        return first == second ? a->id < b->id : first < second;
    });
    return ordered;
}

}  // namespace

std::vector<BookmarkRecord*> BookmarkFinder::in(CharacterPosition start, CharacterPosition end) {
    std::unordered_set<BookmarkRecord*> found;
    Item* first = story_.firstItemAt(start);
    if (!first) return {};
    int enclosing = ItemTree::openBookmarksBefore(first);
    for (Item* item = first; item; item = ItemTree::next(item)) {
        if (item->takesPlace() && story_.positionOf(item) >= end) break;
        if (!item->isMark()) continue;
        const bool isNew = found.insert(item->bookmark).second;
        if (isNew && item->kind == ItemKind::BookmarkEnd) --enclosing;
    }
    if (enclosing > 0) addEnclosing(first, end, enclosing, found);
    return inPlaceOrder(found, start, end);
}

void BookmarkFinder::addEnclosing(Item* first, CharacterPosition end, int count,
                                  std::unordered_set<BookmarkRecord*>& found) {
    std::erase_if(farStarts_, [](const BookmarkRecord* record) { return !record->listed; });
    for (BookmarkRecord* record : farStarts_) {
        if (encloses(*record, first, end) && found.insert(record).second) --count;
    }
    int passed = 0;
    for (Item* mark = ItemTree::previousMark(first); mark && count > 0; mark = ItemTree::previousMark(mark)) {
        ++passed;
        const bool wanted = mark->kind == ItemKind::BookmarkStart && encloses(*mark->bookmark, first, end);
        if (!wanted || !found.insert(mark->bookmark).second) continue;
        --count;
        if (passed > kFar) farStarts_.push_back(mark->bookmark);
    }
}

bool BookmarkFinder::encloses(const BookmarkRecord& record, const Item* first, CharacterPosition end) const {
    if (record.story != &story_) return false;
    return startOf(record) <= story_.positionOf(first) && endOf(record) > end;
}

}  // namespace mergeloom::embedded
