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
constexpr const char* kPartOfField = "The range covers only one end of a field.";

}  // namespace

void StoryEraser::check(CharacterPosition start, CharacterPosition end) const {
    story_.check(start, end);
    end = withoutLastMark(start, end);
    if (start == end) return;
    checkStructure(start, end);
    checkFields(start, end);
}

void StoryEraser::erase(CharacterPosition start, CharacterPosition end) {
    check(start, end);
    end = withoutLastMark(start, end);
    if (start == end) return;
    removeCoveredBookmarks(start, end);
    eraseItems(start, end);
    story_.shift(start, end - start, {});
}

CharacterPosition StoryEraser::withoutLastMark(CharacterPosition start, CharacterPosition end) const {
    if (end > start && end.value == story_.length().value) end = end - CharacterCount{1};
    if (start == end) return end;
    const Item* first = story_.items().itemAt(start);
    const Item* last = story_.items().itemAt(end - CharacterCount{1});
    const bool endsOwnCell = last->kind == ItemKind::ParagraphMark && story_.endsCell(last) &&
                             story_.cellOf(last) == commonCell(first, last);
    return endsOwnCell ? end - CharacterCount{1} : end;
}

void StoryEraser::checkStructure(CharacterPosition start, CharacterPosition end) const {
    const Item* first = story_.items().itemAt(start);
    const Item* last = story_.items().itemAt(end - CharacterCount{1});
    if (first->kind == ItemKind::RowMark) refuse(kPartOfTable);
    const pugi::xml_node container = commonCell(first, last);
    const pugi::xml_node firstTable = story_.outermostTableOf(first, container);
    if (firstTable) {
        const Item* before = ItemTree::previousInText(first);
        const bool startsInside = story_.positionOf(first) != start;
        if (startsInside || (before && isInside(before->node, firstTable))) refuse(kPartOfTable);
    }
    const pugi::xml_node lastTable = story_.outermostTableOf(last, container);
    const Item* next = ItemTree::nextInText(last);
    if (lastTable && next && isInside(next->node, lastTable)) refuse(kPartOfTable);
    const bool endsParagraph = last->kind == ItemKind::ParagraphMark && !lastTable;
    const bool intoTable = endsParagraph && (!next || story_.cellOf(next) != story_.cellOf(last));
    if (intoTable && !firstTable && hasTextBefore(first, start))
        refuse("A paragraph cannot run into a table.");
}

bool StoryEraser::hasTextBefore(const Item* item, CharacterPosition start) const {
    if (story_.positionOf(item) != start) return true;
    const pugi::xml_node paragraph = story_.paragraphOf(item);
    for (item = ItemTree::previous(item); item && isInside(item->node, paragraph);
         item = ItemTree::previous(item)) {
        if (!item->isMark()) return true;
    }
    return false;
}

void StoryEraser::checkFields(CharacterPosition start, CharacterPosition end) const {
    checkWhole(start);
    checkWhole(end);
    int depth = 0;
    for (const Item* item = story_.items().itemAt(start); item; item = ItemTree::next(item)) {
        if (item->takesPlace() && story_.positionOf(item) >= end) break;
        if (item->kind == ItemKind::FieldSeparator && depth == 0) refuse(kPartOfField);
        if (item->kind == ItemKind::FieldBegin) ++depth;
        if (item->kind == ItemKind::FieldEnd && --depth < 0) refuse(kPartOfField);
    }
    if (depth != 0) refuse(kPartOfField);
}

void StoryEraser::checkWhole(CharacterPosition position) const {
    const Item* item = story_.items().itemAt(position);
    if (!item || story_.positionOf(item) == position) return;
    if (item->kind != ItemKind::Text && item->kind != ItemKind::FieldCode) refuse(kPartOfField);
}

void StoryEraser::removeCoveredBookmarks(CharacterPosition start, CharacterPosition end) {
    std::vector<BookmarkRecord*> covered;
    for (Item* item = story_.firstItemAt(start); item; item = ItemTree::next(item)) {
        if (item->takesPlace() && story_.positionOf(item) >= end) break;
        if (item->kind != ItemKind::BookmarkStart) continue;
        const CharacterPosition first = story_.positionOf(item);
        const CharacterPosition last = story_.positionOf(item->bookmark->end);
        const bool emptyAtAnEnd = first == last && (first == start || first == end);
        if (last <= end && !emptyAtAnEnd) covered.push_back(item->bookmark);
    }
    for (BookmarkRecord* record : covered)
        bookmarks_.remove(*record);
}

void StoryEraser::eraseItems(CharacterPosition start, CharacterPosition end) {
    const Item* last = story_.items().itemAt(end - CharacterCount{1});
    Item* item = story_.items().itemAt(start);
    const pugi::xml_node container = commonCell(item, last);
    // Paragraphs are joined once nothing is between them any more.
    std::vector<Item*> paragraphMarks;
    for (std::int64_t left = (end - start).value; left > 0;) {
        if (const pugi::xml_node table = story_.outermostTableOf(item, container)) {
            left -= eraseTable(item, table);
            continue;
        }
        Item* next = ItemTree::next(item);
        const std::int64_t from = std::max<std::int64_t>(0, (start - story_.positionOf(item)).value);
        const std::int64_t count = std::min<std::int64_t>(item->length - from, left);
        if (item->kind == ItemKind::ParagraphMark) {
            paragraphMarks.push_back(item);
        } else if (count < item->length) {
            trim(item, {from}, {from + count});
        } else if (!item->isMark()) {
            erasePartOfRun(item);
        }
        left -= count;
        item = next;
    }
    for (Item* mark : paragraphMarks)
        eraseParagraphMark(mark);
}

void StoryEraser::trim(Item* item, CharacterPosition start, CharacterPosition end) {
    std::string text = item->node.child_value();
    const std::size_t first = byteOffset(text, {start.value});
    text.erase(first, byteOffset(text, {end.value}) - first);
    journal_.setText(story_.part(), item->node, text);
    journal_.keepBlanks(item->node);
    journal_.setLength(story_.items(), item, utf16Length(text));
}

std::int64_t StoryEraser::eraseTable(Item*& item, pugi::xml_node table) {
    for (Item* before = ItemTree::previous(item); before && isInside(before->node, table);) {
        item = before;
        before = ItemTree::previous(before);
    }
    std::int64_t length = 0;
    pugi::xml_node after = table;
    while (item && isInside(item->node, table)) {
        Item* next = ItemTree::next(item);
        length += item->length;
        if (item->isMark()) {
            // The mark of a bookmark that begins or ends outside stays at the place of the table.
            journal_.move(story_.part(), item->node, table.parent(), after);
            after = item->node;
        } else {
            journal_.removeItem(story_.items(), item);
        }
        item = next;
    }
    removeElement(table);
    return length;
}

void StoryEraser::eraseParagraphMark(Item* mark) {
    const pugi::xml_node first = mark->node;
    const Item* next = ItemTree::nextInText(mark);
    const pugi::xml_node second = next ? story_.paragraphOf(next) : pugi::xml_node();
    if (!second || story_.cellOf(next) != story_.cellOf(mark)) {
        // A paragraph that is joined with the table after it has nothing but marks left.
        preserveMarks(mark, first);
        preserveOthers(first);
    } else {
        moveContent(mark, next, second);
    }
    removeElement(first);
    journal_.removeItem(story_.items(), mark);
}

void StoryEraser::moveContent(const Item* mark, const Item* next, pugi::xml_node second) {
    pugi::xml_node after = story_.names().child(second, opc::WordTag::ParagraphProperties);
    const auto take = [&](pugi::xml_node node) {
        journal_.move(story_.part(), node, second, after);
        after = node;
    };
    for (pugi::xml_node child = mark->node.first_child(); child;) {
        const pugi::xml_node following = child.next_sibling();
        if (story_.names().tagOf(child) != opc::WordTag::ParagraphProperties) take(child);
        child = following;
    }
    // Marks between the paragraphs come after the content of the first one.
    for (const Item* between = ItemTree::next(mark); between != next; between = ItemTree::next(between)) {
        if (!isInside(between->node, second)) take(between->node);
    }
}

void StoryEraser::erasePartOfRun(Item* item) {
    const opc::WordNames& names = story_.names();
    const pugi::xml_node run = item->node.parent();
    const bool isSimpleField = names.tagOf(item->node) == opc::WordTag::SimpleField;
    // The element of a simple field is removed with its end.
    if (!isSimpleField || item->kind == ItemKind::FieldEnd) {
        preserveMarks(item, item->node);
        removeElement(item->node);
    }
    journal_.removeItem(story_.items(), item);
    if (names.tagOf(run) != opc::WordTag::Run) return;
    const pugi::xml_node rest = run.first_child();
    const bool empty =
        !rest || (rest == run.last_child() && names.tagOf(rest) == opc::WordTag::RunProperties);
    if (empty) journal_.remove(story_.part(), run);
}

void StoryEraser::preserveMarks(const Item* item, pugi::xml_node element) {
    const pugi::xml_node after = element.previous_sibling();
    for (item = ItemTree::previous(item); item && isInside(item->node, element);
         item = ItemTree::previous(item)) {
        if (item->isMark()) journal_.move(story_.part(), item->node, element.parent(), after);
    }
}

void StoryEraser::preserveOthers(pugi::xml_node paragraph) {
    for (pugi::xml_node child = paragraph.first_child(); child;) {
        const pugi::xml_node following = child.next_sibling();
        const bool isOther = story_.names().tagOf(child) == opc::WordTag::Other;
        if (isOther) journal_.move(story_.part(), child, paragraph.parent(), paragraph.previous_sibling());
        child = following;
    }
}

void StoryEraser::removeElement(pugi::xml_node element) {
    bookmarks_.unlistTextBoxes(element);
    const pugi::xml_node content = element.parent();
    journal_.remove(story_.part(), element);
    const bool isEmptied = !content.first_child() &&
                           story_.names().tagOf(content) == opc::WordTag::ContentControlContent &&
                           !story_.names().ancestor(content, opc::WordTag::Paragraph);
    if (isEmptied) journal_.remove(story_.part(), content.parent());
}

pugi::xml_node StoryEraser::commonCell(const Item* first, const Item* last) const {
    pugi::xml_node cell = story_.cellOf(first);
    while (cell && !isInside(last->node, cell)) {
        cell = story_.names().ancestor(cell, opc::WordTag::CellElement);
    }
    return cell && isInside(cell, story_.root()) ? cell : pugi::xml_node();
}

}  // namespace mergeloom::embedded
