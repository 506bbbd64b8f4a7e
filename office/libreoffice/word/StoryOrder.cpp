#include "office/libreoffice/word/StoryOrder.h"

#include "office/libreoffice/word/TableCells.h"

#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/text/XTextRangeCompare.hpp>

namespace mergeloom::libreoffice::order {

namespace {

using Comparison = Reference<css::text::XTextRangeCompare>;

/// Compares the end of a table with a place that is not the end of a table.
int compareWithTableEnd(const TextReference& story, const RangeReference& lastCellEnd,
                        const TextPlace& place) {
    if (compareStarts(story, lastCellEnd, place.at) >= 0 || place.beyond != Beyond::Nothing) return 1;
    const TableReference before = tableBefore(place.at);
    return before.is() && isSameTable(before, tableAt(lastCellEnd)) ? 0 : -1;
}

}  // namespace

int compareStarts(const TextReference& story, const RangeReference& first, const RangeReference& second) {
    return -Comparison(story, UNO_QUERY_THROW)->compareRegionStarts(first, second);
}

int compareEnds(const TextReference& story, const RangeReference& first, const RangeReference& second) {
    return -Comparison(story, UNO_QUERY_THROW)->compareRegionEnds(first, second);
}

int compare(const TextReference& story, const TextPlace& first, const TextPlace& second) {
    const bool isFirstAfterTable = first.beyond == Beyond::Table;
    const bool isSecondAfterTable = second.beyond == Beyond::Table;
    if (isFirstAfterTable && !isSecondAfterTable) return compareWithTableEnd(story, first.at, second);
    if (isSecondAfterTable && !isFirstAfterTable) return -compareWithTableEnd(story, second.at, first);
    const int places = compareStarts(story, first.at, second.at);
    return places != 0 ? places : static_cast<int>(first.beyond) - static_cast<int>(second.beyond);
}

/// Places that can be compared may still be in different stories: the body of LibreOffice 25.2 compares those
/// of headers, too, which come before its first place.
bool holds(const TextReference& story, const RangeReference& range) try {
    return compareStarts(story, range, firstPlaceOf(story)) >= 0 &&
           compareEnds(story, range, story->getEnd()) <= 0;
} catch (const css::lang::IllegalArgumentException&) {
    return false;
}

}  // namespace mergeloom::libreoffice::order
