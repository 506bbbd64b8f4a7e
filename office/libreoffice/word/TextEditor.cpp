#include "office/libreoffice/word/TextEditor.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/InlinePicture.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/style/BreakType.hpp>
#include <com/sun/star/text/ControlCharacter.hpp>
#include <com/sun/star/text/XTextTable.hpp>
#include <string_view>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

constexpr CharacterCount kOne{1};

/// Where the plain text that a text begins with ends; tabs are plain for Writer.
std::size_t plainLength(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) >= ' ' || text[length] == '\t'))
        ++length;
    return length;
}

bool isBreak(char character) {
    return character == '\r' || character == '\n' || character == '\v' || character == '\f';
}

}  // namespace

CharacterCount TextEditor::replace(WriterStory& story, Stretch stretch, const std::string& text) {
    stretch = withoutLastMark(story, stretch);
    for (const MarkPtr& mark :
         stretch.start == stretch.end ? std::vector<MarkPtr>{} : story.map().marksCoveredBy(stretch)) {
        content_.removeMark(mark);
    }
    const std::vector<MarkPtr> behind = startingBehind(story, stretch);
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
    return content_.cursorOver(story, first)->getString() != "\n";
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
    for (const MarkPtr& mark : story.map().marksCoveredBy({table->start, table->end()}))
        content_.removeMark(mark);
    story.writerTable(*table)->dispose();
    story.map().removeTable(table);
    story.forgetCells();
    content_.needle().forget();
}

CharacterCount TextEditor::insert(WriterStory& story, CharacterPosition position, const std::string& text) {
    const CharacterPosition start = position;
    for (std::string_view rest = text; !rest.empty();) {
        if (const std::size_t plain = plainLength(rest); plain > 0) {
            const std::string part(rest.substr(0, plain));
            insertPlain(story, position, part);
            position = position + utf16Length(part);
            rest.remove_prefix(plain);
            continue;
        }
        if (isBreak(rest.front())) {
            insertBreak(story, position, rest.front());
            position = position + kOne;
        }
        rest.remove_prefix(rest.starts_with("\r\n") ? 2 : 1);
    }
    return position - start;
}

void TextEditor::insertPlain(WriterStory& story, CharacterPosition position, const std::string& text) {
    const TextPlace place = story.map().placeOf(position);
    const TextReference& writerText = story.textOf(place.text);
    const OUString inserted = toUno(text);
    const NeedleText way = story.needleText(place.text);
    writerText->insertString(rangeOf(content_.needle().at(way, place.steps)), inserted, false);
    content_.needle().passed(inserted.getLength());
    story.map().insertText(position, {inserted.getLength()});
}

void TextEditor::insertBreak(WriterStory& story, CharacterPosition position, char character) {
    const TextPlace place = story.map().placeOf(position);
    const TextReference& text = story.textOf(place.text);
    const CursorReference& cursor = content_.needle().at(story.needleText(place.text), place.steps);
    const auto kind = character == '\v' ? css::text::ControlCharacter::LINE_BREAK
                                        : css::text::ControlCharacter::PARAGRAPH_BREAK;
    text->insertControlCharacter(rangeOf(cursor), kind, false);
    if (character == '\f') {
        Reference<css::beans::XPropertySet>(cursor, UNO_QUERY_THROW)
            ->setPropertyValue("BreakType", css::uno::Any(css::style::BreakType_PAGE_BEFORE));
    }
    content_.needle().passed(1);
    story.map().insertText(position, kOne);
}

}  // namespace mergeloom::libreoffice
