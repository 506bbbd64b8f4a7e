#pragma once

#include "office/graft/StoryLines.h"

#include <compare>
#include <cstddef>
#include <vector>

namespace mergeloom::graft {

/// A place in the lines of a story: before a unit, or before the mark of the line. Unlike a position it does
/// not count content that depends on the writer of the document, such as the codes of fields.
struct LinePlace {
    std::size_t line = 0;
    std::size_t unit = 0;

    friend auto operator<=>(const LinePlace&, const LinePlace&) = default;
};

/// Returns the place of a position.
LinePlace placeOf(const std::vector<Line>& lines, CharacterPosition position);
/// Return the first and the last position of a place.
CharacterPosition firstPositionOf(const std::vector<Line>& lines, LinePlace place);
CharacterPosition lastPositionOf(const std::vector<Line>& lines, LinePlace place);

}  // namespace mergeloom::graft
