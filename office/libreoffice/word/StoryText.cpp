#include "office/libreoffice/word/StoryText.h"

#include "base/Text.h"
#include "office/libreoffice/session/UnoText.h"

#include <algorithm>

namespace mergeloom::libreoffice {

namespace {

/// Whether the mark of a cell or of a row stands behind the position.
bool isMark(const StoryMap& map, CharacterPosition position) {
    const TablePtr table = map.tableAt(position);
    return table && table->endOf(table->cellAt(position)) <= position;
}

/// Where the text that the position stands in is broken off next: by a table, by the mark of its cell, or at
/// the story's end, for no cursor goes behind the last paragraph's mark.
CharacterPosition endOfPart(const StoryMap& map, CharacterPosition position, CharacterPosition end) {
    const TextPlace place = map.placeOf(position);
    if (place.text.table) end = std::min(end, place.text.table->endOf(place.text.cell));
    for (const TablePtr& table : map.tables()) {
        if (table->start > position) end = std::min(end, table->start);
    }
    return std::min(end, CharacterPosition{map.length().value - 1});
}

/// Calls back for each part, and for each mark of a cell or row between them.
void walk(const StoryMap& map, Stretch stretch, const auto& onPart, const auto& onMark) {
    const CharacterPosition last{map.length().value - 1};
    for (CharacterPosition at = stretch.start; at < std::min(stretch.end, last);) {
        if (isMark(map, at)) {
            onMark("\r\a");
            at = at + kMark;
            continue;
        }
        const CharacterPosition end = endOfPart(map, at, stretch.end);
        // A cursor that goes over the end of the paragraph before a table takes the table with it.
        const bool endsAtTable = map.placeOf(end).text != map.placeOf(at).text;
        const CharacterPosition textEnd = endsAtTable ? end - kMark : end;
        if (at < textEnd) onPart(Stretch{at, textEnd});
        if (endsAtTable) onMark("\r");
        at = end;
    }
}

}  // namespace

std::vector<Stretch> partsOf(const StoryMap& map, Stretch stretch) {
    std::vector<Stretch> parts;
    walk(
        map, stretch, [&](Stretch part) { parts.push_back(part); }, [](const char*) {});
    return parts;
}

std::string textOf(WriterContent& content, WriterStory& story, Stretch stretch) {
    std::string text;
    const auto read = [&](Stretch part) {
        text += replaceAll(fromUno(content.cursorOver(story, part)->getString()), "\n", "\r");
    };
    walk(story.map(), stretch, read, [&](const char* mark) { text += mark; });
    // What ends with the story's last paragraph ends with its mark, where no cursor of Writer's goes.
    if (stretch.start < stretch.end && stretch.end.value == story.map().length().value) text += '\r';
    return text;
}

}  // namespace mergeloom::libreoffice
