#pragma once

#include "app/GnuOptions.h"
#include "app/Place.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"

#include <ostream>
#include <vector>

namespace mergeloom {

/// Returns all bookmarks in the order of reading: the body's first, then those of the other stories.
std::vector<Place> placesOf(word::Document& document);

/// Returns all visible names and all pictures in the order of reading: by sheet, row, column and name, then
/// the names that refer to no cells.
std::vector<Place> placesOf(excel::Workbook& workbook);

/// Writes the places as an aligned table with a heading, or as a JSON array of objects.
void writePlaces(std::ostream& stream, const std::vector<Place>& places, ListFormat format);

}  // namespace mergeloom
