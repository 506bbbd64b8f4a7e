#include "office/embedded/text/StoryEraser.h"

#include "base/AutomationError.h"
#include "base/Text.h"

#include <algorithm>
#include <vector>

namespace mergeloom::embedded {

namespace {

[[noreturn]] void refuse(const char* why) {
    throw AutomationError(kCommandFailed, why);
}

constexpr const char* kPartOfTable = "The range covers a part of a table's structure.";

}  // namespace

void StoryEraser::erase(CharacterPosition start, CharacterPosition end) {
    story_.check(start, end);
    end = withoutLastMark(start, end);
    if (start == end) return;
    checkStructure(start, end);
    checkFields(start, end);
    removeCoveredBookmarks(start, end);
    eraseItems(start, end);
    story_.shift(start, end - start, {});
}

CharacterPosition StoryEraser::withoutLastMark(CharacterPosition start, CharacterPosition end) const {
    if (start == end) return end;
    const Item* first = story_.items().itemAt(start);
    const Item* last = story_.items().itemAt(end - CharacterCount{1});
    const bool endsStory = end.value == story_.length().value;
    const bool endsOwnCell = last->kind == ItemKind::ParagraphMark && story_.endsCell(last) &&
                             story_.cellOf(last) == story_.cellOf(first);
    return endsStory || endsOwnCell ? end - CharacterCount{1} : end;
}

void StoryEraser::checkStructure(CharacterPosition start, CharacterPosition end) const {
    const Item* first = story_.items().itemAt(start);
    const Item* last = story_.items().itemAt(end - CharacterCount{1});
    if (first->kind == ItemKind::RowMark) refuse(kPartOfTable);
    const pugi::xml_node container = commonCell(first, last);
    const pugi::xml_node firstTable = outermostTable(first, container);
    if (firstTable) {
        const Item* before = ItemTree::previous(first);
        while (before && !before->takesPlace())
            before = ItemTree::previous(before);
        const bool startsInside = ItemTree::positionOf(first) != start;
        if (startsInside || (before && isInside(before->node, firstTable))) refuse(kPartOfTable);
    }
    const pugi::xml_node lastTable = outermostTable(last, container);
    const Item* next = ItemTree::next(last);
    while (next && !next->takesPlace())
        next = ItemTree::next(next);
    if (lastTable && next && isInside(next->node, lastTable)) refuse(kPartOfTable);
}

void StoryEraser::checkFields(CharacterPosition start, CharacterPosition end) const {
    int depth = 0;
    for (const Item* item = story_.items().itemAt(start); item; item = ItemTree::next(item)) {
        if (item->takesPlace() && ItemTree::positionOf(item) >= end) break;
        if (item->kind == ItemKind::FieldBegin) ++depth;
        const bool alone = item->kind == ItemKind::FieldSeparator && depth == 0;
        if (item->kind == ItemKind::FieldEnd) --depth;
        if (depth < 0 || alone) break;
    }
    if (depth != 0) refuse("The range covers only one end of a field.");
}

void StoryEraser::removeCoveredBookmarks(CharacterPosition start, CharacterPosition end) {
    std::vector<BookmarkRecord*> covered;
    for (Item* item = story_.firstItemAt(start); item; item = ItemTree::next(item)) {
        if (item->takesPlace() && ItemTree::positionOf(item) >= end) break;
        if (item->kind != ItemKind::BookmarkStart) continue;
        const CharacterPosition first = ItemTree::positionOf(item);
        const CharacterPosition last = ItemTree::positionOf(item->bookmark->end);
        const bool emptyAtAnEnd = first == last && (first == start || first == end);
        if (last <= end && !emptyAtAnEnd) covered.push_back(item->bookmark);
    }
    for (BookmarkRecord* record : covered)
        bookmarks_.remove(*record);
}

void StoryEraser::eraseItems(CharacterPosition start, CharacterPosition end) {
    const Item* first = story_.items().itemAt(start);
    const Item* last = story_.items().itemAt(end - CharacterCount{1});
    const pugi::xml_node container = commonCell(first, last);
    std::int64_t left = (end - start).value;
    Item* item = story_.items().itemAt(start);
    while (left > 0) {
        if (!item->takesPlace()) {
            Item* next = ItemTree::next(item);
            if (item->kind == ItemKind::Anchor) eraseItem(item);
            item = next;
            continue;
        }
        const CharacterPosition position = ItemTree::positionOf(item);
        const std::int64_t from = std::max<std::int64_t>(0, start.value - position.value);
        const std::int64_t count = std::min<std::int64_t>(item->length - from, left);
        if (const pugi::xml_node table = outermostTable(item, container)) {
            Item* next = item;
            while (next && isInside(next->node, table)) {
                left -= next->length;
                next = ItemTree::next(next);
            }
            eraseTable(item, table);
            item = next;
            continue;
        }
        Item* next = ItemTree::next(item);
        left -= count;
        if (count < item->length) {
            trim(item, {from}, {from + count});
        } else {
            eraseItem(item);
        }
        item = next;
    }
}

void StoryEraser::eraseItem(Item* item) {
    if (item->kind == ItemKind::ParagraphMark) return eraseParagraphMark(item);
    erasePartOfRun(item);
    journal_.removeItem(story_.items(), item);
}

void StoryEraser::trim(Item* item, CharacterPosition start, CharacterPosition end) {
    if (item->kind != ItemKind::Text && item->kind != ItemKind::FieldCode) {
        refuse("The range covers only one end of a field.");
    }
    std::string text = item->node.child_value();
    const std::size_t first = byteOffset(text, {start.value});
    text.erase(first, byteOffset(text, {end.value}) - first);
    journal_.setText(story_.part(), item->node.first_child(), text);
    keepBlanks(item->node);
    journal_.setLength(story_.items(), item, utf16Length(text));
}

void StoryEraser::eraseTable(Item* first, pugi::xml_node table) {
    pugi::xml_node behind = table;
    for (Item* item = first; item && isInside(item->node, table);) {
        Item* next = ItemTree::next(item);
        if (item->isMark()) {
            // The mark of a bookmark that begins or ends outside lives on where the table stood.
            journal_.move(story_.part(), item->node, table.parent(), behind);
            behind = item->node;
        } else {
            journal_.removeItem(story_.items(), item);
        }
        item = next;
    }
    journal_.remove(story_.part(), table);
}

void StoryEraser::eraseParagraphMark(Item* mark) {
    const pugi::xml_node first = mark->node;
    const Item* next = ItemTree::next(mark);
    while (next && !next->takesPlace())
        next = ItemTree::next(next);
    const pugi::xml_node second = next ? story_.paragraphOf(next) : pugi::xml_node();
    const bool intoTable = !second || story_.cellOf(next) != story_.cellOf(mark);
    const Item* before = ItemTree::previous(mark);
    while (before && !before->takesPlace())
        before = ItemTree::previous(before);
    const bool hasText = before && before->kind != ItemKind::ParagraphMark && isInside(before->node, first);
    if (intoTable && hasText) refuse("A paragraph cannot run into a table.");

    pugi::xml_node behind = story_.names().child(second, WordTag::ParagraphProperties);
    const auto take = [&](pugi::xml_node node) {
        if (intoTable) {
            journal_.move(story_.part(), node, first.parent(), first.previous_sibling());
        } else {
            journal_.move(story_.part(), node, second, behind);
            behind = node;
        }
    };
    for (pugi::xml_node child = first.first_child(); child;) {
        const pugi::xml_node following = child.next_sibling();
        if (story_.names().tagOf(child) != WordTag::ParagraphProperties) take(child);
        child = following;
    }
    // Marks between the paragraphs stand behind what came out of the first one.
    for (pugi::xml_node node = first.next_sibling(); node && node != second && !intoTable;) {
        const pugi::xml_node following = node.next_sibling();
        const WordTag tag = story_.names().tagOf(node);
        if (tag == WordTag::BookmarkStart || tag == WordTag::BookmarkEnd) take(node);
        node = following;
    }
    journal_.remove(story_.part(), first);
    journal_.removeItem(story_.items(), mark);
}

void StoryEraser::erasePartOfRun(Item* item) {
    const WordNames& names = story_.names();
    const pugi::xml_node run = item->node.parent();
    const bool isSimpleFieldBegin =
        item->kind == ItemKind::FieldBegin && names.tagOf(item->node) == WordTag::SimpleField;
    if (isSimpleFieldBegin) return;  // its element goes with the end
    if (names.tagOf(item->node) == WordTag::SimpleField) rescueMarks(item->node);
    journal_.remove(story_.part(), item->node);
    if (names.tagOf(run) != WordTag::Run) return;
    const pugi::xml_node rest = run.first_child();
    const bool empty = !rest || (rest == run.last_child() && names.tagOf(rest) == WordTag::RunProperties);
    if (empty) journal_.remove(story_.part(), run);
}

void StoryEraser::rescueMarks(pugi::xml_node field) {
    for (pugi::xml_node child = field.first_child(); child;) {
        const pugi::xml_node following = child.next_sibling();
        const WordTag tag = story_.names().tagOf(child);
        const bool isMark = tag == WordTag::BookmarkStart || tag == WordTag::BookmarkEnd;
        if (isMark) journal_.move(story_.part(), child, field.parent(), field.previous_sibling());
        child = following;
    }
}

pugi::xml_node StoryEraser::commonCell(const Item* first, const Item* last) const {
    pugi::xml_node cell = story_.cellOf(first);
    while (cell && !isInside(last->node, cell)) {
        cell = story_.names().ancestor(cell, WordTag::CellElement);
    }
    return cell && isInside(cell, story_.root()) ? cell : pugi::xml_node();
}

pugi::xml_node StoryEraser::outermostTable(const Item* item, pugi::xml_node within) const {
    pugi::xml_node found;
    for (pugi::xml_node node = item->node; node && node != within && node != story_.root();
         node = node.parent()) {
        if (story_.names().tagOf(node) == WordTag::Table) found = node;
    }
    return found;
}

}  // namespace mergeloom::embedded
