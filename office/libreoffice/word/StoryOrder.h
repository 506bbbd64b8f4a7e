#pragma once

#include "office/libreoffice/word/TextPlace.h"

namespace mergeloom::libreoffice {

/// The order of places in one story, its cells included.
namespace order {

/// Returns less than 0 when the first range starts before the second one, more when after it. Raises UNO's
/// IllegalArgumentException for ranges outside the story.
int compareStarts(const TextReference& story, const RangeReference& first, const RangeReference& second);
int compareEnds(const TextReference& story, const RangeReference& first, const RangeReference& second);

/// The same for places. One after a table equals the start of the paragraph that follows the table.
int compare(const TextReference& story, const TextPlace& first, const TextPlace& second);

/// Returns true when the range lies in the story.
bool holds(const TextReference& story, const RangeReference& range);

}  // namespace order

}  // namespace mergeloom::libreoffice
