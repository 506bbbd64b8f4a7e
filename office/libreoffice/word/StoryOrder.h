#pragma once

#include "office/libreoffice/word/TextPlace.h"

namespace mergeloom::libreoffice {

/// The order of places in one story, its cells included.
namespace order {

/// Returns less than 0 when the first range starts before the second one, more when after it. Both are in the
/// story: some versions raise UNO's IllegalArgumentException for others.
int compareStarts(const TextReference& story, const RangeReference& first, const RangeReference& second);
int compareEnds(const TextReference& story, const RangeReference& first, const RangeReference& second);

/// The same for places. One after a table equals the start of the paragraph that follows the table.
int compare(const TextReference& story, const TextPlace& first, const TextPlace& second);

/// Returns true when the range is in the story or in a table of it.
bool holds(const TextReference& story, const RangeReference& range);

}  // namespace order

}  // namespace mergeloom::libreoffice
