#include "office/embedded/text/BookmarkEditor.h"

#include <algorithm>

namespace mergeloom::embedded {

namespace {

int columnOf(const opc::WordNames& names, pugi::xml_node cell) {
    int column = 0;
    for (pugi::xml_node before = cell.previous_sibling(); before; before = before.previous_sibling()) {
        if (names.tagOf(before) == opc::WordTag::CellElement) ++column;
    }
    return column;
}

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

void BookmarkEditor::check(CharacterPosition start, CharacterPosition end) const {
    story_.check(start, end);
    (void)DomPlaces(story_).paragraphAt(story_.items().itemAt(start));
    editor_.checkSplit(start);
    editor_.checkSplit(end);
}

BookmarkRecord& BookmarkEditor::add(const std::string& name, std::int64_t id, CharacterPosition start,
                                    CharacterPosition end) {
    editor_.splitRun(start);
    if (end != start) editor_.splitRun(end);
    BookmarkRecord& record = table_.create(name, id, story_);
    addStartMark(record, start, end);
    addEndMark(record, end);
    journal_.listBookmark(table_, record);
    return record;
}

void BookmarkEditor::addStartMark(BookmarkRecord& record, CharacterPosition start, CharacterPosition end) {
    const MarkPlace place = startPlace(start);
    const pugi::xml_node mark =
        elementFactory_.addBookmarkStart(place.inPart, std::to_string(record.id), record.name);
    setColumns(mark, start, end);
    record.start = addMark(ItemKind::BookmarkStart, record, mark, place.next);
}

void BookmarkEditor::addEndMark(BookmarkRecord& record, CharacterPosition end) {
    const MarkPlace place = endPlace(end, record.start);
    const pugi::xml_node mark = elementFactory_.addBookmarkEnd(place.inPart, std::to_string(record.id));
    record.end = addMark(ItemKind::BookmarkEnd, record, mark, place.next);
}

Item* BookmarkEditor::addMark(ItemKind kind, BookmarkRecord& record, pugi::xml_node mark, Item* next) {
    Item* const item = story_.makeItem(kind, mark, {0});
    item->bookmark = &record;
    journal_.insertItemOf(story_, mark, next, item);
    return item;
}

void BookmarkEditor::remove(BookmarkRecord& record) {
    for (const BookmarkCopy& copy : table_.copiesOf(record))
        journal_.remove(*copy.part, copy.node);
    removeMark(record.start);
    removeMark(record.end);
    journal_.unlistBookmark(table_, record);
}

void BookmarkEditor::unlistTextBoxes(pugi::xml_node element) {
    for (const pugi::xml_node child : element.children()) {
        unlistTextBoxes(child);
        if (story_.names().tagOf(child) != opc::WordTag::BookmarkStart) continue;
        BookmarkRecord* record = table_.find(story_.names().value(child, "name"));
        const bool isIt = record && record->start->node == child && record->story != &story_;
        if (isIt) journal_.unlistBookmark(table_, *record);
    }
}

void BookmarkEditor::moveStart(BookmarkRecord& record, CharacterPosition start) {
    check(start, start);
    editor_.splitRun(start);
    // A bookmark that becomes empty keeps its marks in order.
    const bool isEmpty = start >= endOf(record);
    removeMark(record.start);
    if (isEmpty) removeMark(record.end);
    insertMark(record.start, startPlace(start));
    if (isEmpty) insertMark(record.end, placeAfter(record.start));
    updateColumns(record);
}

void BookmarkEditor::moveEnd(BookmarkRecord& record, CharacterPosition end) {
    story_.check(end, end);
    if (end < startOf(record)) moveStart(record, end);
    if (end == endOf(record)) return;
    editor_.splitRun(end);
    removeMark(record.end);
    insertMark(record.end, endPlace(end, record.start));
    updateColumns(record);
}

BookmarkEditor::MarkPlace BookmarkEditor::startPlace(CharacterPosition start) const {
    Item* next = story_.items().itemAt(start);
    return {DomPlaces(story_).forStartMark(ItemTree::previous(next), next), next};
}

BookmarkEditor::MarkPlace BookmarkEditor::endPlace(CharacterPosition end, const Item* start) const {
    if (story_.positionOf(start) == end) return placeAfter(start);
    const Item* previous = story_.items().itemAt(end - CharacterCount{1});
    Item* next = ItemTree::next(previous);
    return {DomPlaces(story_).forEndMark(previous, next), next};
}

BookmarkEditor::MarkPlace BookmarkEditor::placeAfter(const Item* mark) {
    return {{mark->node.parent(), mark->node}, ItemTree::next(mark)};
}

void BookmarkEditor::insertMark(Item* item, const MarkPlace& place) {
    journal_.insert(story_, item->node, place.inPart, place.next, item);
}

void BookmarkEditor::removeMark(Item* item) {
    journal_.remove(story_.part(), item->node);
    journal_.removeItem(story_.items(), item);
}

void BookmarkEditor::updateColumns(const BookmarkRecord& record) {
    Item* start = record.start;
    const CharacterPosition from = story_.positionOf(start);
    const CharacterPosition to = endOf(record);
    const opc::WordNames& names = story_.names();
    const bool hadColumns = names.value(start->node, "colFirst")[0] != '\0';
    if (!hadColumns && !isRangeOfColumns(from, to)) return;
    const pugi::xml_node mark =
        elementFactory_.makeBookmarkStart(names.value(start->node, "id"), record.name);
    setColumns(mark, from, to);
    journal_.move(story_.part(), mark, start->node.parent(), start->node);
    journal_.remove(story_.part(), start->node);
    journal_.setNode(start, mark);
}

bool BookmarkEditor::isRangeOfColumns(CharacterPosition start, CharacterPosition end) const {
    if (start == end || !story_.hasTables()) return false;
    const Item* first = story_.items().itemAt(start);
    const Item* last = story_.items().itemAt(end - CharacterCount{1});
    const pugi::xml_node firstCell = story_.cellOf(first);
    const pugi::xml_node lastCell = story_.cellOf(last);
    return firstCell && lastCell && firstCell != lastCell && last->kind != ItemKind::RowMark &&
           story_.tableOf(first) == story_.tableOf(last);
}

void BookmarkEditor::setColumns(pugi::xml_node mark, CharacterPosition start, CharacterPosition end) const {
    if (!isRangeOfColumns(start, end)) return;
    const opc::WordNames& names = story_.names();
    const auto set = [&](const char* name, CharacterPosition place) {
        const pugi::xml_node cell = story_.cellOf(story_.items().itemAt(place));
        pugi::xml_node(mark).append_attribute(names.attribute(name).c_str()) = columnOf(names, cell);
    };
    set("colFirst", start);
    set("colLast", end - CharacterCount{1});
}

std::vector<BookmarkRecord*> BookmarkEditor::in(CharacterPosition start, CharacterPosition end) {
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
    if (found.empty()) return {};
    return inPlaceOrder(found, start, end);
}

void BookmarkEditor::addEnclosing(Item* first, CharacterPosition end, int count,
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

bool BookmarkEditor::encloses(const BookmarkRecord& record, const Item* first, CharacterPosition end) const {
    if (record.story != &story_) return false;
    return startOf(record) <= story_.positionOf(first) && endOf(record) > end;
}

}  // namespace mergeloom::embedded
