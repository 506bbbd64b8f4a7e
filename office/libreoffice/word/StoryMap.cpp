#include "office/libreoffice/word/StoryMap.h"

#include <algorithm>
#include <iterator>

namespace mergeloom::libreoffice {

namespace {

CharacterCount sizeOf(const MappedTable& table) {
    return table.end() - table.start;
}

bool overlaps(Stretch mark, Stretch stretch) {
    if (stretch.start == stretch.end) return mark.start <= stretch.start && stretch.start <= mark.end;
    if (mark.start == mark.end) return stretch.start <= mark.start && mark.start < stretch.end;
    return mark.start < stretch.end && stretch.start < mark.end;
}

/// Writer takes text at a bookmark's start for text before it, and as Word does at its end for text behind
/// it.
void insertInWriter(MarkRecord& mark, CharacterPosition position, CharacterCount count) {
    if (!mark.inWriter) return;
    Stretch& place = *mark.inWriter;
    if (place.start == place.end && place.start == position) return mark.inWriter.reset();
    if (place.start >= position) place.start = place.start + count;
    if (place.end > position) place.end = place.end + count;
}

}  // namespace

struct StoryMap::State {
    CharacterCount length;
    std::vector<std::pair<TablePtr, MappedTable>> tables;
    std::vector<std::pair<MarkPtr, MarkRecord>> marks;
    std::vector<std::pair<ObjectPtr, TextObject>> objects;
    std::vector<CharacterPosition> pairs;
};

std::shared_ptr<const StoryMap::State> StoryMap::state() const {
    auto state = std::make_shared<State>();
    state->length = length_;
    for (const TablePtr& table : tables_)
        state->tables.emplace_back(table, *table);
    for (const MarkPtr& mark : marks_)
        state->marks.emplace_back(mark, *mark);
    for (const ObjectPtr& object : objects_)
        state->objects.emplace_back(object, *object);
    state->pairs = pairs_;
    return state;
}

void StoryMap::clear() {
    for (const TablePtr& table : tables_)
        table->placed = false;
    for (const MarkPtr& mark : marks_)
        mark->listed = false;
    for (const ObjectPtr& object : objects_)
        object->placed = false;
    tables_.clear();
    marks_.clear();
    objects_.clear();
    pairs_.clear();
}

void StoryMap::restore(const State& state) {
    clear();
    length_ = state.length;
    for (const auto& [table, former] : state.tables) {
        *table = former;
        tables_.push_back(table);
    }
    for (const auto& [mark, former] : state.marks) {
        *mark = former;
        marks_.push_back(mark);
    }
    for (const auto& [object, former] : state.objects) {
        *object = former;
        objects_.push_back(object);
    }
    pairs_ = state.pairs;
    const CharacterPosition last{length_.value};
    moveStretches([&](CharacterPosition place) { return std::min(place, last); });
}

CharacterPosition StoryMap::startOf(const TextKey& text) const {
    return text.table ? text.table->startOf(text.cell) : CharacterPosition{0};
}

/// The tables that stand in the text itself and not in cells of it.
std::vector<TablePtr> StoryMap::tablesIn(const TextKey& text) const {
    const CharacterPosition from = startOf(text);
    const CharacterPosition to = text.table ? text.table->endOf(text.cell) : CharacterPosition{length_.value};
    std::vector<TablePtr> found;
    for (const TablePtr& table : tables_) {
        const bool isInside = table != text.table && from <= table->start && table->end() <= to;
        if (isInside && (found.empty() || table->start >= found.back()->end())) found.push_back(table);
    }
    return found;
}

TablePtr StoryMap::tableAt(CharacterPosition position) const {
    TablePtr found;
    for (const TablePtr& table : tables_) {
        if (table->holds(position)) found = table;
    }
    return found;
}

TablePtr StoryMap::tableAround(Stretch stretch) const {
    const CharacterPosition last = stretch.start == stretch.end ? stretch.end : stretch.end - kMark;
    TablePtr found;
    for (const TablePtr& table : tables_) {
        if (table->holds(stretch.start) && table->holds(last)) found = table;
    }
    return found;
}

TablePtr StoryMap::tableNamed(const std::string& name) const {
    const auto found = std::ranges::find(tables_, name, [](const TablePtr& table) { return table->name; });
    return found == tables_.end() ? nullptr : *found;
}

void StoryMap::addTable(const TablePtr& table) {
    const auto behind = [&](const TablePtr& other) { return other->start > table->start; };
    tables_.insert(std::ranges::find_if(tables_, behind), table);
}

TextPlace StoryMap::placeOf(CharacterPosition position) const {
    TextKey text{tableAt(position), {}};
    if (text.table) {
        text.cell = text.table->cellAt(position);
        position = std::min(position, text.table->endOf(text.cell));
    }
    CharacterPosition from = startOf(text);
    std::int64_t steps = 0;
    for (const TablePtr& table : tablesIn(text)) {
        if (table->end() > position) break;
        steps += stepsOver({from, table->start});
        from = table->end();
    }
    return {text, steps + stepsOver({from, position})};
}

std::vector<std::int64_t> StoryMap::stepsBehindTables(const TextKey& text) const {
    std::vector<std::int64_t> found;
    CharacterPosition from = startOf(text);
    std::int64_t steps = 0;
    for (const TablePtr& table : tablesIn(text)) {
        steps += stepsOver({from, table->start});
        from = table->end();
        found.push_back(steps);
    }
    return found;
}

std::int64_t StoryMap::stepsOver(Stretch stretch) const {
    const auto first = std::ranges::lower_bound(pairs_, stretch.start);
    const auto last = std::ranges::lower_bound(first, pairs_.end(), stretch.end);
    return (stretch.end - stretch.start).value - std::distance(first, last);
}

void StoryMap::addPair(CharacterPosition position) {
    pairs_.insert(std::ranges::lower_bound(pairs_, position), position);
}

std::vector<ObjectPtr> StoryMap::objectsIn(Stretch stretch, ObjectKind kind) const {
    std::vector<ObjectPtr> found;
    std::ranges::copy_if(objects_, std::back_inserter(found), [&](const ObjectPtr& object) {
        const CharacterPosition start = object->place.start;
        return object->kind == kind && stretch.start <= start && start < stretch.end;
    });
    std::ranges::sort(found, [](const ObjectPtr& one, const ObjectPtr& other) {
        const Stretch a = one->place;
        const Stretch b = other->place;
        return a.start == b.start ? a.end > b.end : a.start < b.start;
    });
    return found;
}

void StoryMap::removeObject(const ObjectPtr& object) {
    object->placed = false;
    std::erase(objects_, object);
}

std::vector<MarkPtr> StoryMap::marksIn(Stretch stretch) const {
    std::vector<MarkPtr> found;
    std::ranges::copy_if(marks_, std::back_inserter(found),
                         [&](const MarkPtr& mark) { return overlaps(mark->place, stretch); });
    std::ranges::stable_sort(found, {}, [](const MarkPtr& mark) { return mark->place.start; });
    return found;
}

std::vector<MarkPtr> StoryMap::marksCoveredBy(Stretch stretch) const {
    std::vector<MarkPtr> found;
    for (const MarkPtr& mark : marks_) {
        const Stretch place = mark->place;
        const bool emptyAtAnEnd =
            place.start == place.end && (place.start == stretch.start || place.start == stretch.end);
        const bool isCovered = stretch.start <= place.start && place.end <= stretch.end;
        if (isCovered && !emptyAtAnEnd) found.push_back(mark);
    }
    return found;
}

Stretch StoryMap::inWriter(Stretch stretch) const {
    // No cursor goes behind the last paragraph's mark.
    const CharacterPosition last{length_.value - 1};
    stretch = {std::min(stretch.start, last), std::min(stretch.end, last)};
    if (stretch.start == stretch.end || placeOf(stretch.start).text == placeOf(stretch.end).text) {
        return stretch;
    }
    const TablePtr table = tableAt(stretch.end - kMark);
    if (table) stretch.end = table->endOf(table->cellAt(stretch.end - kMark));
    return stretch;
}

void StoryMap::moveStretches(const auto& moved) {
    std::erase_if(stretches_, [](const std::weak_ptr<LiveStretch>& stretch) { return stretch.expired(); });
    for (const std::weak_ptr<LiveStretch>& watched : stretches_) {
        const std::shared_ptr<LiveStretch> stretch = watched.lock();
        stretch->start = moved(stretch->start);
        stretch->end = moved(stretch->end);
    }
}

/// What goes in where an object begins stands before it; the place of a floating one stays.
void StoryMap::insertAmongObjects(CharacterPosition position, CharacterCount count) {
    for (const ObjectPtr& object : objects_) {
        Stretch& place = object->place;
        const bool moves = place.start == place.end ? place.start > position : place.start >= position;
        if (moves) place.start = place.start + count;
        if (moves || place.end > position) place.end = place.end + count;
    }
}

void StoryMap::removeFromObjects(Stretch stretch) {
    const auto moved = [&](CharacterPosition place) {
        if (place <= stretch.start) return place;
        return place < stretch.end ? stretch.start : place - (stretch.end - stretch.start);
    };
    for (const ObjectPtr& object : objects_) {
        const Stretch before = object->place;
        object->place = {moved(before.start), moved(before.end)};
        const bool isFloating = before.start == before.end;
        object->placed = isFloating ? before.start <= stretch.start || stretch.end <= before.start
                                    : object->place.start != object->place.end;
    }
    std::erase_if(objects_, [](const ObjectPtr& object) { return !object->placed; });
}

void StoryMap::insertAmongPairs(CharacterPosition position, CharacterCount count) {
    for (auto pair = std::ranges::lower_bound(pairs_, position); pair != pairs_.end(); ++pair)
        *pair = *pair + count;
}

void StoryMap::insertText(CharacterPosition position, CharacterCount count) {
    for (const TablePtr& table : tables_) {
        if (table->holds(position)) {
            MappedCell& cell = table->at(table->cellAt(position));
            cell.length = cell.length + count;
        } else if (table->start > position) {
            table->start = table->start + count;
        }
    }
    const auto moved = [&](CharacterPosition place) { return place <= position ? place : place + count; };
    for (const MarkPtr& mark : marks_) {
        mark->place = {moved(mark->place.start), moved(mark->place.end)};
        insertInWriter(*mark, position, count);
    }
    moveStretches(moved);
    insertAmongObjects(position, count);
    insertAmongPairs(position, count);
    length_ = length_ + count;
}

void StoryMap::removeText(Stretch stretch) {
    const CharacterCount count = stretch.end - stretch.start;
    for (const TablePtr& table : tables_) {
        if (table->holds(stretch.start)) {
            MappedCell& cell = table->at(table->cellAt(stretch.start));
            cell.length = cell.length - count;
        } else if (table->start > stretch.start) {
            table->start = table->start - count;
        }
    }
    const auto moved = [&](CharacterPosition place) {
        if (place <= stretch.start) return place;
        return place < stretch.end ? stretch.start : place - count;
    };
    for (const MarkPtr& mark : marks_) {
        const bool isCut = mark->place.start < stretch.end && stretch.start < mark->place.end;
        mark->place = {moved(mark->place.start), moved(mark->place.end)};
        // Writer's own rules for what stays of a bookmark are its own affair: it is put in anew.
        if (isCut) mark->inWriter.reset();
        if (mark->inWriter) mark->inWriter = {moved(mark->inWriter->start), moved(mark->inWriter->end)};
    }
    moveStretches(moved);
    removeFromObjects(stretch);
    std::erase_if(pairs_,
                  [&](CharacterPosition pair) { return stretch.start <= pair && pair < stretch.end; });
    insertAmongPairs(stretch.end, {-count.value});
    length_ = length_ - count;
}

void StoryMap::insertTable(const TablePtr& table) {
    const CharacterPosition position = table->start;
    const CharacterCount size = sizeOf(*table);
    const bool followsTable =
        std::ranges::any_of(tables_, [&](const TablePtr& other) { return other->end() == position; });
    for (const TablePtr& other : tables_) {
        if (other->holds(position)) {
            MappedCell& cell = other->at(other->cellAt(position));
            cell.length = cell.length + size;
        } else if (other->start >= position) {
            other->start = other->start + size;
        }
    }
    const auto moved = [&](CharacterPosition place) { return place < position ? place : place + size; };
    for (const MarkPtr& mark : marks_) {
        // A bookmark over the table before it stays with that table.
        const bool staysBefore = followsTable && mark->place.end == position && mark->place.start < position;
        if (!staysBefore) mark->place = {moved(mark->place.start), moved(mark->place.end)};
        if (mark->inWriter) mark->inWriter = {moved(mark->inWriter->start), moved(mark->inWriter->end)};
    }
    moveStretches([&](CharacterPosition place) { return place <= position ? place : place + size; });
    insertAmongObjects(position, size);
    insertAmongPairs(position, size);
    length_ = length_ + size;
    addTable(table);
}

void StoryMap::appendRow(MappedTable& table, MappedRow row) {
    const CharacterPosition end = table.end();
    const CharacterCount size{static_cast<std::int64_t>(row.size()) + 1};
    for (const TablePtr& other : tables_) {
        if (other.get() == &table) continue;
        if (other->holds(table.start) && other->end() > end) {
            MappedCell& cell = other->at(other->cellAt(table.start));
            cell.length = cell.length + size;
        } else if (other->start >= end) {
            other->start = other->start + size;
        }
    }
    table.rows.push_back(std::move(row));
    const auto moved = [&](CharacterPosition place) { return place < end ? place : place + size; };
    for (const MarkPtr& mark : marks_) {
        mark->place = {moved(mark->place.start), moved(mark->place.end)};
        if (mark->inWriter) mark->inWriter = {moved(mark->inWriter->start), moved(mark->inWriter->end)};
    }
    moveStretches(moved);
    insertAmongObjects(end, size);
    insertAmongPairs(end, size);
    length_ = length_ + size;
}

void StoryMap::removeTable(const TablePtr& table) {
    const Stretch whole{table->start, table->end()};
    for (const TablePtr& other : tables_) {
        if (whole.start <= other->start && other->end() <= whole.end) other->placed = false;
    }
    table->placed = false;
    std::erase_if(tables_, [](const TablePtr& other) { return !other->placed; });
    removeText(whole);
}

}  // namespace mergeloom::libreoffice
