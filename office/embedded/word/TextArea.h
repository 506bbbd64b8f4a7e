#pragma once

#include "base/Units.h"
#include "office/embedded/text/Story.h"

namespace mergeloom::embedded {

/// How wide text may run at a place: the cell that it stands in, or a column of the section's page between
/// the margins (ECMA-376 Part 1, 17.6). Stories without sections of their own count as an A4 page's body.
Emu textAreaWidth(const Story& story, CharacterPosition position);

}  // namespace mergeloom::embedded
