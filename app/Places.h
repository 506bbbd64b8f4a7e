#pragma once

#include "app/GnuOptions.h"
#include "base/Units.h"
#include "office/model/excel/Workbook.h"
#include "office/model/word/Document.h"

#include <ostream>
#include <string>
#include <variant>
#include <vector>

namespace mergeloom {

struct TextLocation {
    std::string story;  ///< as Range::storyName returns it
    CharacterPosition start;
    CharacterPosition end;
};

struct CellLocation {
    std::string refersTo;  ///< the formula of a name; empty for a picture
    std::string sheet;     ///< empty for a name that refers to no cells
    int row = 0;           ///< of the first cell, counted from 1
    int column = 0;
};

/// A named place of a document or a workbook.
struct Place {
    std::string name;
    std::string kind;
    std::string where;  ///< the location for a user
    std::string text;
    std::variant<TextLocation, CellLocation> location;
};

/// Returns all bookmarks in the order of reading: the body's first, then those of the other stories.
std::vector<Place> placesOf(word::Document& document);

/// Returns all visible names and all pictures in the order of reading: by sheet, row, column and name, then
/// the names that refer to no cells.
std::vector<Place> placesOf(excel::Workbook& workbook);

/// Writes the places as an aligned table with a heading, or as a JSON array of objects.
void writePlaces(std::ostream& stream, const std::vector<Place>& places, ListFormat format);

}  // namespace mergeloom
