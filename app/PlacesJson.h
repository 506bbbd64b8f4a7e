#pragma once

#include "app/Place.h"

#include <ostream>
#include <vector>

namespace mergeloom {

/// Writes an array with an object for each place: "name", "kind", "text" and "story" are texts, "start" and
/// "end" are numbers of characters from the story's start.
void writePlacesJson(std::ostream& stream, const std::vector<Place>& places);

}  // namespace mergeloom
