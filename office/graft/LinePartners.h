#pragma once

#include "office/graft/StoryLines.h"

#include <cstddef>
#include <vector>

namespace mergeloom::graft {

/// Returns for each line of an export the index of the line with the same text in the original, or
/// kNoPartner. Page breaks and objects may differ, since the office reads a page break at the start of a
/// paragraph at the end of the one before, and loses objects that it cannot show. The units of such a line of
/// the original are replaced by one for each unit of the export's line; those that it does not have are
/// empty. Raises Refusal if the lists differ too much.
std::vector<std::size_t> partnersByText(const std::vector<Line>& lines, std::vector<Line>& originals);

}  // namespace mergeloom::graft
