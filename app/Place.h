#pragma once

#include "base/Units.h"

#include <string>
#include <variant>

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

}  // namespace mergeloom
