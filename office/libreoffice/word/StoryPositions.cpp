#include "office/libreoffice/word/StoryPositions.h"

#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/StoryOrder.h"
#include "office/libreoffice/word/TableCells.h"
#include "office/libreoffice/word/TextPortions.h"

#include <algorithm>
#include <cstdlib>

namespace mergeloom::libreoffice {

namespace {

constexpr CharacterCount kMark{1};

/// A character of two units is one step of a cursor.
std::int64_t pairsIn(const OUString& text) {
    std::int64_t pairs = 0;
    for (sal_Int32 at = 0; at < text.getLength(); ++at)
        pairs += text[at] >= 0xD800 && text[at] < 0xDC00 ? 1 : 0;
    return pairs;
}

bool goBy(const CursorReference& cursor, std::int64_t steps) {
    for (std::int64_t left = std::abs(steps); left > 0; left -= kMaxSteps) {
        const auto part = static_cast<sal_Int16>(std::min(left, kMaxSteps));
        if (!(steps < 0 ? cursor->goLeft(part, true) : cursor->goRight(part, true))) return false;
    }
    return true;
}

/// Returns the steps of a cursor from the first place to the second one in the same paragraph. A field has a
/// text of any length, but takes one step.
std::int64_t stepsBetween(const TextReference& story, const RangeReference& start,
                          const RangeReference& end) {
    const OUString text = cursorOver(start, end)->getString();
    const auto reached = [&](std::int64_t steps) {
        const CursorReference cursor = cursorOver(start);
        goBy(cursor, steps);
        return order::compareEnds(story, rangeOf(cursor), end);
    };
    const std::int64_t plain = text.getLength() - pairsIn(text);
    if (reached(plain) == 0) return plain;
    std::int64_t low = 0;
    std::int64_t high = 1;
    while (reached(high) < 0)
        high *= 2;
    while (low < high) {
        const std::int64_t middle = (low + high) / 2;
        if (reached(middle) < 0) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

CharacterCount unitsBetween(const TextReference& story, const RangeReference& start,
                            const RangeReference& end) {
    if (order::compareStarts(story, start, end) == 0) return {0};
    return {stepsBetween(story, start, end) + pairsIn(cursorOver(start, end)->getString())};
}

}  // namespace

StoryPositions::StoryPositions(const TextReference& story) : story_(story) {
    readText(story);
}

void StoryPositions::readText(const Reference<css::uno::XInterface>& text) {
    for (const auto elements = enumerationOf(text); elements->hasMoreElements();) {
        const css::uno::Any element = elements->nextElement();
        if (const TableReference table{element, UNO_QUERY}; table.is()) {
            readTable(table);
        } else {
            readParagraph(RangeReference(element, UNO_QUERY_THROW));
        }
    }
}

/// The mark of a cell's last paragraph is that of the cell.
void StoryPositions::readTable(const TableReference& table) {
    for (const RowOfCells& row : rowsOf(table)) {
        for (const OUString& name : row)
            readText(cellText(table, name));
        at_ = at_ + kMark;
    }
    paragraphs_.back().afterTable = at_;
}

void StoryPositions::readParagraph(const RangeReference& paragraph) {
    const RangeReference start = paragraph->getStart();
    const CharacterCount length = unitsBetween(story_, start, paragraph->getEnd());
    paragraphs_.push_back({at_, start, length});
    at_ = at_ + length + kMark;
}

const StoryPositions::Paragraph& StoryPositions::paragraphAt(const RangeReference& place) const {
    const auto after = std::ranges::partition_point(paragraphs_, [&](const Paragraph& paragraph) {
        return order::compareStarts(story_, paragraph.at, place) <= 0;
    });
    return after == paragraphs_.begin() ? *after : *std::prev(after);
}

CharacterPosition StoryPositions::positionOf(const TextPlace& place) const {
    const Paragraph& paragraph = paragraphAt(place.at);
    if (place.beyond == Beyond::Table) return paragraph.afterTable;
    const CharacterPosition position = paragraph.start + unitsBetween(story_, paragraph.at, place.at);
    return place.beyond == Beyond::Nothing ? position : position + kMark;
}

TextPlace StoryPositions::placeOf(CharacterPosition position) const {
    const auto after = std::ranges::partition_point(
        paragraphs_, [&](const Paragraph& paragraph) { return paragraph.start <= position; });
    const Paragraph& paragraph = *std::prev(after);
    const CharacterCount offset = position - paragraph.start;
    const CursorReference cursor = movedBy(paragraph.at, std::min(offset, paragraph.length));
    const Beyond mark = after == paragraphs_.end() ? Beyond::StoryMark : Beyond::CellMark;
    return {cursor->getEnd(), offset > paragraph.length ? mark : Beyond::Nothing};
}

CursorReference movedBy(const RangeReference& place, CharacterCount units) {
    const std::int64_t direction = units.value < 0 ? -1 : 1;
    const std::int64_t count = std::abs(units.value);
    for (std::int64_t steps = count;;) {
        const CursorReference cursor = cursorOver(place);
        goBy(cursor, direction * steps);
        const std::int64_t excess = steps + pairsIn(cursor->getString()) - count;
        if (excess <= 0 || steps == 0) {
            if (direction < 0) {
                cursor->collapseToStart();
            } else {
                cursor->collapseToEnd();
            }
            return cursor;
        }
        steps -= std::max<std::int64_t>(1, excess / 2);
    }
}

}  // namespace mergeloom::libreoffice
