#include "office/graft/LinePlace.h"

#include <algorithm>

namespace mergeloom::graft {

LinePlace placeOf(const std::vector<Line>& lines, CharacterPosition position) {
    const auto after = std::ranges::upper_bound(lines, position, {}, &Line::start);
    const std::size_t number =
        after == lines.begin() ? 0 : static_cast<std::size_t>(after - lines.begin()) - 1;
    const std::vector<Unit>& units = lines[number].units;
    // A position inside a field counts as before what follows it.
    const auto unit = std::ranges::lower_bound(units, position, {}, &Unit::start);
    return {number, static_cast<std::size_t>(unit - units.begin())};
}

CharacterPosition firstPositionOf(const std::vector<Line>& lines, LinePlace place) {
    const Line& line = lines[place.line];
    return place.unit == 0 ? line.start : line.units[place.unit - 1].end;
}

CharacterPosition lastPositionOf(const std::vector<Line>& lines, LinePlace place) {
    const Line& line = lines[place.line];
    return place.unit < line.units.size() ? line.units[place.unit].start : line.mark;
}

}  // namespace mergeloom::graft
