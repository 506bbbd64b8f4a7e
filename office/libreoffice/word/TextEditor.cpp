#include "office/libreoffice/word/TextEditor.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/InlinePicture.h"
#include "office/libreoffice/word/UnknownField.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/style/BreakType.hpp>
#include <com/sun/star/text/ControlCharacter.hpp>
#include <com/sun/star/text/XTextTable.hpp>
#include <string_view>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

constexpr CharacterCount kOne{1};

/// The text with breaks as Writer takes them, CR for a paragraph's end and LF for a line's, and without the
/// other control characters, which no document holds.
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

}  // namespace

CharacterCount TextEditor::replace(WriterStory& story, Stretch stretch, const std::string& text) {
    content_.checkMayEdit();
    stretch = withoutLastMark(story, stretch);
    for (const MarkPtr& mark :
         stretch.start == stretch.end ? std::vector<MarkPtr>{} : story.map().marksCoveredBy(stretch)) {
        content_.removeMark(mark);
    }
    const std::vector<MarkPtr> behind = startingBehind(story, stretch);
    // The text goes in after the first character replaced, which must not be the mark that begins a field's
    // code.
    for (ObjectPtr field; !text.empty() && (field = unknownFieldAtStart(story.map(), stretch));)
        stretch.end = stretch.end - dissolveUnknownField(content_, story, field);
    CharacterCount inserted;
    if (!text.empty() && beginsWithCharacter(story, stretch)) {
        // The new text takes the formatting of the first character replaced when it goes in behind that.
        const CharacterPosition second = stretch.start + kOne;
        remove(story, {second, stretch.end});
        inserted = insert(story, second, text);
        remove(story, {stretch.start, second});
    } else {
        remove(story, stretch);
        inserted = insert(story, stretch.start, text);
    }
    keepBehind(behind, stretch.start, inserted);
    content_.settle();
    return inserted;
}

/// Whether a character that is no paragraph's end stands first in a stretch to be replaced.
bool TextEditor::beginsWithCharacter(WriterStory& story, Stretch stretch) {
    if (stretch.start == stretch.end) return false;
    const StoryMap& map = story.map();
    if (map.placeOf(stretch.start).text != map.placeOf(stretch.start + kOne).text) return false;
    const Stretch first{stretch.start, stretch.start + kOne};
    const bool isBracket =
        std::ranges::any_of(map.objectsIn(first, ObjectKind::Field),
                            [&](const ObjectPtr& field) { return field->place.end > first.end; });
    return !isBracket && content_.cursorOver(story, first)->getString() != "\n";
}

std::vector<MarkPtr> TextEditor::startingBehind(WriterStory& story, Stretch stretch) {
    if (stretch.start == stretch.end) return {};
    std::vector<MarkPtr> found = story.map().marksIn({stretch.end, stretch.end});
    std::erase_if(found, [&](const MarkPtr& mark) { return mark->place.start != stretch.end; });
    return found;
}

void TextEditor::keepBehind(const std::vector<MarkPtr>& marks, CharacterPosition start,
                            CharacterCount inserted) {
    for (const MarkPtr& mark : marks) {
        if (mark->place.start != start) continue;
        mark->place.start = start + inserted;
        mark->place.end = std::max(mark->place.end, mark->place.start);
    }
}

CharacterCount TextEditor::replaceByPicture(WriterStory& story, Stretch stretch,
                                            const std::string& fileName) {
    content_.checkMayEdit();
    const InlinePicture picture(content_, fileName);
    stretch = withoutLastMark(story, stretch);
    for (const MarkPtr& mark :
         stretch.start == stretch.end ? std::vector<MarkPtr>{} : story.map().marksCoveredBy(stretch)) {
        content_.removeMark(mark);
    }
    const std::vector<MarkPtr> behind = startingBehind(story, stretch);
    remove(story, stretch);
    picture.insert(story, stretch.start);
    story.map().insertText(stretch.start, kOne);
    TextObject shape;
    shape.kind = ObjectKind::InlineShape;
    shape.place = {stretch.start, stretch.start + kOne};
    story.map().addObject(std::make_shared<TextObject>(shape));
    // Whether the cursor stands before the picture now or behind it is left open.
    content_.needle().forget();
    keepBehind(behind, stretch.start, kOne);
    content_.settle();
    return kOne;
}

/// A story's last paragraph and a cell keep their marks.
Stretch TextEditor::withoutLastMark(WriterStory& story, Stretch stretch) {
    const StoryMap& map = story.map();
    if (stretch.end.value == map.length().value && stretch.start < stretch.end)
        stretch.end = stretch.end - kOne;
    if (stretch.start == stretch.end) return stretch;
    const TextPlace first = map.placeOf(stretch.start);
    const bool endsOwnCell =
        first.text.table && first.text.table->endOf(first.text.cell) + kOne == stretch.end;
    if (endsOwnCell) stretch.end = stretch.end - kOne;
    return stretch;
}

void TextEditor::remove(WriterStory& story, Stretch stretch) {
    const StoryMap& map = story.map();
    while (stretch.start < stretch.end) {
        // Tables go whole, the last one first.
        TablePtr last;
        for (const TablePtr& table : map.tables()) {
            if (stretch.start <= table->start && table->end() <= stretch.end &&
                (!last || table->start >= last->end()))
                last = table;
        }
        if (!last) break;
        const CharacterCount size = last->end() - last->start;
        removeTable(story, last);
        stretch.end = stretch.end - size;
    }
    if (stretch.start < stretch.end) removeWithinText(story, stretch);
}

void TextEditor::removeWithinText(WriterStory& story, Stretch stretch) {
    if (story.map().placeOf(stretch.start).text != story.map().placeOf(stretch.end).text) {
        throw AutomationError(kCommandFailed, "The range covers a part of a table's structure.");
    }
    content_.cursorOver(story, stretch)->setString(OUString());
    // A cursor whose text was taken out keeps two ends, which the next text would drive apart.
    content_.needle().forget();
    story.map().removeText(stretch);
}

void TextEditor::removeTable(WriterStory& story, const TablePtr& table) {
    content_.checkMayEdit();
    content_.flush();
    for (const MarkPtr& mark : story.map().marksCoveredBy({table->start, table->end()}))
        content_.removeMark(mark);
    story.writerTable(*table)->dispose();
    story.map().removeTable(table);
    story.forgetCells();
    content_.needle().forget();
}

CharacterCount TextEditor::insert(WriterStory& story, CharacterPosition position, const std::string& text) {
    const CharacterPosition start = position;
    const std::string marked = withWritersMarks(text);
    for (std::string_view rest = marked; !rest.empty();) {
        const std::string part(rest.substr(0, rest.find('\f')));
        if (!part.empty()) content_.type(story, position, part);
        position = position + utf16Length(part);
        rest.remove_prefix(part.size());
        if (rest.empty()) break;
        insertPageBreak(story, position);
        position = position + kOne;
        rest.remove_prefix(1);
    }
    return position - start;
}

void TextEditor::insertPageBreak(WriterStory& story, CharacterPosition position) {
    const TextPlace place = story.map().placeOf(position);
    const TextReference& text = story.textOf(place.text);
    Needle& needle = content_.needle();
    const CursorReference& cursor = needle.at(story.needleText(place.text), place.steps);
    text->insertControlCharacter(rangeOf(cursor), css::text::ControlCharacter::PARAGRAPH_BREAK, false);
    Reference<css::beans::XPropertySet>(cursor, UNO_QUERY_THROW)
        ->setPropertyValue("BreakType", css::uno::Any(css::style::BreakType_PAGE_BEFORE));
    needle.passed(1);
    story.map().insertText(position, kOne);
}

}  // namespace mergeloom::libreoffice
