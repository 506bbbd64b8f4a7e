#pragma once

#include "app/Place.h"

#include <ostream>
#include <vector>

namespace mergeloom {

/// Writes a line for each place below a heading, with aligned columns.
void writePlacesTable(std::ostream& stream, const std::vector<Place>& places);

}  // namespace mergeloom
