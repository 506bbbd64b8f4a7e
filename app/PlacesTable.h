#pragma once

#include "app/Place.h"

#include <ostream>
#include <vector>

namespace mergeloom {

/// Writes a line for each place below a heading, with aligned columns. A text is shown in one line: a
/// paragraph mark as a pilcrow, and no more than its beginning when it is long.
void writePlacesTable(std::ostream& stream, const std::vector<Place>& places);

}  // namespace mergeloom
