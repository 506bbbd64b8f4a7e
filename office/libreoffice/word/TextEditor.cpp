#include "office/libreoffice/word/TextEditor.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/FieldFinder.h"
#include "office/libreoffice/word/InlinePicture.h"
#include "office/libreoffice/word/StoryOrder.h"
#include "office/libreoffice/word/TableCells.h"
#include "office/libreoffice/word/TextPortions.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/style/BreakType.hpp>
#include <com/sun/star/text/ControlCharacter.hpp>
#include <com/sun/star/text/XParagraphCursor.hpp>
#include <string_view>

namespace mergeloom::libreoffice {

namespace {

/// Returns the text with breaks as Writer takes them, CR for a paragraph's end and LF for a line's, and
/// without the other control characters, which no document contains.
std::string withWritersMarks(std::string_view text) {
    std::string marked;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char character = text[at];
        const bool isPlain = static_cast<unsigned char>(character) >= ' ' || character == '\t';
        const bool endsPair = character == '\n' && at > 0 && text[at - 1] == '\r';
        if (isPlain || character == '\r' || character == '\f') marked += character;
        if (character == '\n' && !endsPair) marked += '\r';
        if (character == '\v') marked += '\n';
    }
    return marked;
}

/// A cursor takes one step for a character, however many units that has.
std::int64_t stepsOver(std::string_view text) {
    std::int64_t steps = 0;
    for (; !text.empty(); ++steps)
        takeCodePoint(text);
    return steps;
}

void selectBackwards(const CursorReference& cursor, std::int64_t steps) {
    for (; steps > 0; steps -= kMaxSteps)
        cursor->goLeft(static_cast<sal_Int16>(std::min(steps, kMaxSteps)), true);
}

void insertPageBreak(const TextReference& text, const CursorReference& cursor) {
    text->insertControlCharacter(rangeOf(cursor), css::text::ControlCharacter::PARAGRAPH_BREAK, false);
    Reference<css::beans::XPropertySet>(cursor, UNO_QUERY_THROW)
        ->setPropertyValue("BreakType", css::uno::Any(css::style::BreakType_PAGE_BEFORE));
}

/// A paragraph that is split at its end gives the same as a new one after it, but Writer then puts all
/// bookmarks of the document in order.
void insertPart(const TextReference& text, const CursorReference& cursor, const std::string& part) {
    const Reference<css::text::XParagraphCursor> paragraph(cursor, UNO_QUERY_THROW);
    if (part == "\r" && paragraph->isEndOfParagraph()) {
        text->insertControlCharacter(rangeOf(cursor), css::text::ControlCharacter::APPEND_PARAGRAPH, false);
    } else {
        text->insertString(rangeOf(cursor), toUno(part), false);
    }
}

/// Returns true for all of a bookmark's text. One without text at an end of the range stays.
bool covers(const TrackedRange& range, const LiveBookmark& bookmark) {
    const TextPlace start = bookmark.start();
    const TextPlace end = bookmark.end();
    const int startToStart = order::compare(range.story, start, range.start());
    const int endToEnd = order::compare(range.story, end, range.end());
    if (startToStart < 0 || endToEnd > 0) return false;
    const bool isEmpty = order::compare(range.story, start, end) == 0;
    return !isEmpty || (startToStart > 0 && endToEnd < 0);
}

}  // namespace

/// A story's last paragraph and a cell keep their marks.
void TextEditor::trimMarks(TrackedRange& range) {
    if (range.startBeyond != Beyond::Nothing && !range.isCaret())
        throw AutomationError(kCommandFailed, "The range covers a part of a table's structure.");
    range.startBeyond = Beyond::Nothing;
    if (range.endBeyond != Beyond::Table) range.endBeyond = Beyond::Nothing;
}

std::vector<TextEditor::KeptBookmark> TextEditor::removeCovered(const TrackedRange& range) {
    std::vector<KeptBookmark> kept;
    const bool isCaret = range.isCaret();
    for (const LiveBookmark& bookmark : content_.finder().touching(range)) {
        if (!isCaret && covers(range, bookmark)) {
            content_.removeBookmark(bookmark.name);
            continue;
        }
        const int start = order::compare(range.story, bookmark.start(), range.start());
        const bool isEmpty = order::compare(range.story, bookmark.start(), bookmark.end()) == 0;
        const bool ends = bookmark.beyond != Beyond::Nothing &&
                          order::compareEnds(range.story, bookmark.anchor, rangeOf(range.cursor)) == 0;
        kept.push_back({bookmark, start >= 0, isEmpty, ends});
    }
    return kept;
}

/// Removes the field whose mark would be the first character replaced, since the text is inserted after that
/// character.
void TextEditor::dissolveFields(TrackedRange& range, bool hasText) {
    const std::vector<FoundField> fields = fieldsIn(range.cursor);
    for (const FoundField& field : fields) {
        if (!field.inText.is()) continue;
        const RangeReference place = field.object->getAnchor();
        content_.noteRemovedField(cursorOver(place->getStart()), field.code);
        const bool isFirst = order::compareStarts(range.story, place, rangeOf(range.cursor)) == 0;
        if (!hasText || !isFirst || order::compareEnds(range.story, place, rangeOf(range.cursor)) > 0)
            continue;
        field.object->dispose();
        if (!field.inText->isCollapsed()) field.inText->setString(OUString());
    }
}

/// Removes the tables in the range, each as a whole.
void TextEditor::removeTables(TrackedRange& range) {
    if (range.endBeyond == Beyond::Table) {
        const TableReference table = tableAround(range.cursor->getStart(), range.cursor->getEnd());
        if (!table.is())
            throw AutomationError(kCommandFailed, "The range covers a part of a table's structure.");
        const RangeReference after = placeAfter(range.story, table);
        removeTable(range.story, table);
        range.cursor = cursorOver(after);
        range.endBeyond = Beyond::Nothing;
        return;
    }
    if (range.cursor->getString().indexOf('\n') < 0) return;
    const TableReference around = tableAround(range.cursor->getStart(), range.cursor->getEnd());
    if (around.is() && textAt(range.cursor->getStart()) != textAt(range.cursor->getEnd()))
        throw AutomationError(kCommandFailed, "The range covers a part of a table's structure.");
    std::vector<TableReference> tables;
    for (const auto elements = enumerationOf(range.cursor); elements->hasMoreElements();) {
        if (const TableReference table{elements->nextElement(), UNO_QUERY}; table.is())
            tables.push_back(table);
    }
    for (const TableReference& table : tables)
        removeTable(range.story, table);
}

void TextEditor::removeTable(const TextReference& story, const TableReference& table) {
    content_.checkMayEdit();
    (void)removeCovered(wholeTable(story, table));
    table->dispose();
    content_.finder().forgetGap();
}

/// Returns a cursor at the place; one whose text was taken out keeps two ends, which the next text would
/// drive apart.
CursorReference TextEditor::emptied(TrackedRange& range) {
    range.cursor->setString(OUString());
    return cursorOver(range.cursor->getStart());
}

CursorReference TextEditor::insert(const TrackedRange& range, const CursorReference& at,
                                   const std::string& text) {
    const TextReference owner = at->getText();
    const std::string marked = withWritersMarks(text);
    for (std::string_view rest = marked; !rest.empty();) {
        const std::string part(rest.substr(0, rest.find('\f')));
        if (!part.empty()) insertPart(owner, at, part);
        rest.remove_prefix(part.size());
        if (rest.empty()) break;
        insertPageBreak(owner, at);
        rest.remove_prefix(1);
    }
    selectBackwards(at, stepsOver(marked));
    if (!marked.empty()) content_.holdBack(range, at->getStart(), at->getEnd());
    return at;
}

/// Inserts the text after the first character replaced, from which it takes the formatting. Returns none when
/// the range does not begin with a character of text.
CursorReference TextEditor::insertedAfterFirst(TrackedRange& range, const std::string& text) {
    if (range.cursor->isCollapsed()) return {};
    const CursorReference first = cursorOver(range.cursor->getStart());
    const bool isThere = first->goRight(1, true);
    const OUString character = first->getString();
    if (!isThere || character.isEmpty() || character.startsWith("\n")) return {};
    const CursorReference rest = cursorOver(first->getEnd(), range.cursor->getEnd());
    if (!rest->isCollapsed()) rest->setString(OUString());
    const CursorReference inserted = insert(range, cursorOver(first->getEnd()), text);
    // Text that is inserted at a cursor's end makes it longer.
    cursorOver(first->getStart(), inserted->getStart())->setString(OUString());
    return cursorOver(rangeOf(inserted));
}

void TextEditor::replace(TrackedRange& range, const std::string& text) {
    content_.checkMayEdit();
    trimMarks(range);
    const bool isCaret = range.isCaret();
    const std::vector<KeptBookmark> kept = removeCovered(range);
    CursorReference inserted;
    if (isCaret) {
        inserted = insert(range, cursorOver(rangeOf(range.cursor)), text);
    } else {
        removeTables(range);
        dissolveFields(range, !text.empty());
        if (!text.empty()) inserted = insertedAfterFirst(range, text);
        if (!inserted.is()) inserted = insert(range, emptied(range), text);
    }
    settle(range, inserted, kept);
}

void TextEditor::replaceByPicture(TrackedRange& range, const std::string& fileName) {
    content_.checkMayEdit();
    const InlinePicture picture(content_, fileName);
    trimMarks(range);
    const std::vector<KeptBookmark> kept = removeCovered(range);
    if (!range.isCaret()) {
        removeTables(range);
        dissolveFields(range, false);
    }
    const CursorReference place = range.isCaret() ? cursorOver(rangeOf(range.cursor)) : emptied(range);
    const CursorReference inserted = picture.insert(place);
    content_.holdBack(range, inserted->getStart(), inserted->getEnd());
    settle(range, inserted, kept);
}

void TextEditor::settle(TrackedRange& range, const CursorReference& inserted,
                        const std::vector<KeptBookmark>& kept) {
    range.cursor = inserted;
    for (const KeptBookmark& bookmark : kept)
        keep(range, bookmark);
}

/// Writer takes text at a bookmark's start for text before it, and may drop one without text along with what
/// is beside it.
void TextEditor::keep(const TrackedRange& range, const KeptBookmark& kept) {
    if (!kept.startsInside && !kept.endsWithText) return;
    const bool isGone = !content_.model().bookmarks->hasByName(toUno(kept.bookmark.name));
    const RangeReference start =
        kept.startsInside ? range.cursor->getStart() : kept.bookmark.anchor->getStart();
    RangeReference end = kept.isEmpty || isGone ? start : kept.bookmark.anchor->getEnd();
    if (kept.endsWithText) end = range.cursor->getEnd();
    const bool isInPlace = !isGone && order::compareStarts(range.story, kept.bookmark.anchor, start) == 0 &&
                           order::compareStarts(range.story, kept.bookmark.anchor->getEnd(), end) == 0;
    if (isInPlace) return;
    content_.finder().put(kept.bookmark.name,
                          {range.story, cursorOver(start, end), Beyond::Nothing, kept.bookmark.beyond});
}

}  // namespace mergeloom::libreoffice
