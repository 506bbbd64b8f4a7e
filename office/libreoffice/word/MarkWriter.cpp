#include "office/libreoffice/word/MarkWriter.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/container/NoSuchElementException.hpp>
#include <com/sun/star/container/XNamed.hpp>

namespace mergeloom::libreoffice {

namespace {

/// Where a bookmark goes in Writer.
struct MarkPlace {
    Stretch stretch;
    TextPlace from;
    TextPlace to;

    [[nodiscard]] bool isPossible() const {
        return from.text == to.text || (from.text.table && from.text.table == to.text.table);
    }
};

MarkPlace placeOf(const MarkRecord& mark) {
    const StoryMap& map = mark.story->map();
    const Stretch stretch = map.inWriter(mark.place);
    return {stretch, map.placeOf(stretch.start), map.placeOf(stretch.end)};
}

}  // namespace

bool MarkWriter::canPut(const MarkRecord& mark) {
    return placeOf(mark).isPossible();
}

void MarkWriter::check(const MarkRecord& mark) {
    if (canPut(mark)) return;
    throw AutomationError(kCommandFailed,
                          "LibreOffice cannot mark a text that goes from outside a table into it.");
}

void MarkWriter::put(const WriterModel& model, MarkRecord& mark) {
    check(mark);
    WriterStory& story = *mark.story;
    const auto [stretch, from, to] = placeOf(mark);
    const Reference<css::uno::XInterface> made = model.factory->createInstance("com.sun.star.text.Bookmark");
    const Reference<css::text::XTextContent> bookmark(made, UNO_QUERY_THROW);
    Reference<css::container::XNamed>(made, UNO_QUERY_THROW)->setName(toUno(mark.name));
    if (from.text != to.text) {
        putOverCells(story, from, to, bookmark);
    } else {
        const TextReference& text = story.textOf(from.text);
        const NeedleText way = story.needleText(from.text);
        const CursorReference& cursor =
            from.steps == to.steps ? needle_.at(way, from.steps) : needle_.over(way, from.steps, to.steps);
        text->insertTextContent(rangeOf(cursor), bookmark, true);
    }
    mark.inWriter = stretch;
    mark.isWritten = true;
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
    if (!mark.isWritten) return;
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
