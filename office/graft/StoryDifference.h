#pragma once

#include "office/graft/LinePlace.h"
#include "office/graft/StoryLines.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace mergeloom::graft {

/// A replaced text, by its places in the former and in the present story.
struct TextEdit {
    LinePlace formerStart;
    LinePlace formerEnd;
    LinePlace nowStart;
    LinePlace nowEnd;
};

/// A present line that equals none of the former lines. Gives the former place of each unit and of the mark,
/// and none for new ones.
struct TouchedLine {
    std::size_t line = 0;
    std::vector<std::optional<LinePlace>> units;
    std::optional<std::size_t> mark;

    /// Returns true if the whole line is new.
    [[nodiscard]] bool isInserted() const;
};

/// The difference between two exports of a story.
struct StoryDifference {
    std::vector<TextEdit> edits;            ///< in order
    std::vector<TouchedLine> touched;       ///< in order
    std::vector<std::size_t> formerOfLine;  ///< for each present line the equal former one, or kNoPartner
};

/// Returns none if the stories differ too much to be compared.
std::optional<StoryDifference> differenceBetween(const std::vector<Line>& former,
                                                 const std::vector<Line>& now);

}  // namespace mergeloom::graft
