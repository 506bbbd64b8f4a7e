#include "office/libreoffice/word/MarkWriter.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/container/NoSuchElementException.hpp>
#include <com/sun/star/container/XNamed.hpp>

namespace mergeloom::libreoffice {

void MarkWriter::put(const WriterModel& model, MarkRecord& mark) {
    WriterStory& story = *mark.story;
    const Stretch stretch = story.map().inWriter(mark.place);
    const TextPlace from = story.map().placeOf(stretch.start);
    const TextPlace to = story.map().placeOf(stretch.end);
    const bool isOverCells = from.text != to.text;
    if (isOverCells && (!from.text.table || from.text.table != to.text.table)) {
        throw AutomationError(kCommandFailed,
                              "LibreOffice cannot mark a text that goes from outside a table into it.");
    }
    const Reference<css::uno::XInterface> made = model.factory->createInstance("com.sun.star.text.Bookmark");
    const Reference<css::text::XTextContent> bookmark(made, UNO_QUERY_THROW);
    Reference<css::container::XNamed>(made, UNO_QUERY_THROW)->setName(toUno(mark.name));
    if (isOverCells) {
        putOverCells(story, from, to, bookmark);
    } else {
        const TextReference& text = story.textOf(from.text);
        const NeedleText way = story.needleText(from.text);
        const CursorReference& cursor =
            from.steps == to.steps ? needle_.at(way, from.steps) : needle_.over(way, from.steps, to.steps);
        text->insertTextContent(rangeOf(cursor), bookmark, true);
    }
    mark.inWriter = stretch;
}

/// A cursor may go from one cell of a table to another, and the last one's text takes it.
void MarkWriter::putOverCells(WriterStory& story, const TextPlace& from, const TextPlace& to,
                              const Reference<css::text::XTextContent>& bookmark) {
    const TextReference& first = story.textOf(from.text);
    const CursorReference cursor =
        first->createTextCursorByRange(rangeOf(needle_.at(story.needleText(from.text), from.steps)));
    const TextReference& last = story.textOf(to.text);
    cursor->gotoRange(rangeOf(needle_.at(story.needleText(to.text), to.steps)), true);
    last->insertTextContent(rangeOf(cursor), bookmark, true);
}

void MarkWriter::take(const WriterModel& model, const MarkRecord& mark) try {
    const Reference<css::text::XTextContent> bookmark(
        model.bookmarks->getBookmarks()->getByName(toUno(mark.name)), UNO_QUERY_THROW);
    bookmark->dispose();
} catch (const css::container::NoSuchElementException&) {
    // It went with its text.
}

bool MarkWriter::isInPlace(const MarkRecord& mark) {
    return mark.inWriter && *mark.inWriter == mark.story->map().inWriter(mark.place);
}

}  // namespace mergeloom::libreoffice
