#pragma once

#include "app/Place.h"

#include <ostream>
#include <vector>

namespace mergeloom {

/// Writes an array with an object for each place: "name", "kind" and "text" are texts. For a document follow
/// "story", a text, and "start" and "end", numbers of characters from the story's start. For a workbook
/// follow "refersTo", the formula of a name, "sheet", a text, and "row" and "column", the numbers of the
/// first cell counted from 1; a value that a place does not have is null.
void writePlacesJson(std::ostream& stream, const std::vector<Place>& places);

}  // namespace mergeloom
