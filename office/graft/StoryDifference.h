#pragma once

#include "office/graft/LinePlace.h"
#include "office/graft/StoryLines.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace mergeloom::graft {

/// A stretch of text in the places of the former and the present story.
struct TextEdit {
    LinePlace formerStart;
    LinePlace formerEnd;
    LinePlace nowStart;
    LinePlace nowEnd;
};

/// A present line that is not as one of the former lines was, with what is left of those: for each unit and
/// for the mark where it was, none for what is new.
struct TouchedLine {
    std::size_t line = 0;
    std::vector<std::optional<LinePlace>> units;
    std::optional<std::size_t> mark;

    /// Returns whether all of the line is new.
    [[nodiscard]] bool isInserted() const;
};

/// The difference between two exports of a story.
struct StoryDifference {
    std::vector<TextEdit> edits;            ///< in order
    std::vector<TouchedLine> touched;       ///< in order
    std::vector<std::size_t> formerOfLine;  ///< for each present line the equal former one, or kNoPartner
};

/// Returns none when the stories differ in more than can be compared.
std::optional<StoryDifference> differenceBetween(const std::vector<Line>& former,
                                                 const std::vector<Line>& now);

}  // namespace mergeloom::graft
