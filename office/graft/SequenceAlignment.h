#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::graft {

/// A stretch of two sequences that is not equal: the elements [formerStart, formerEnd) of the one became
/// [nowStart, nowEnd) of the other. Between two stretches both sequences are equal.
struct Gap {
    std::size_t formerStart = 0;
    std::size_t formerEnd = 0;
    std::size_t nowStart = 0;
    std::size_t nowEnd = 0;
};

/// Returns the gaps of a shortest edit script between two sequences of keys, in order (Myers, "An O(ND)
/// difference algorithm", 1986). None when they differ in more elements than are worth the search.
std::optional<std::vector<Gap>> gapsBetween(const std::vector<std::string>& former,
                                            const std::vector<std::string>& now);

/// Returns for each element of the one sequence the equal one of the other, or npos.
std::vector<std::size_t> partnersOf(const std::vector<Gap>& gaps, std::size_t formerSize);

inline constexpr std::size_t kNoPartner = static_cast<std::size_t>(-1);

}  // namespace mergeloom::graft
