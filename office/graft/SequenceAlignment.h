#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::graft {

/// A difference between two sequences: the elements [formerStart, formerEnd) of the former became [nowStart,
/// nowEnd) of the present one. Between two gaps the sequences are equal.
struct Gap {
    std::size_t formerStart = 0;
    std::size_t formerEnd = 0;
    std::size_t nowStart = 0;
    std::size_t nowEnd = 0;
};

/// Returns the gaps of a shortest edit script between two sequences of keys, in order (Myers, "An O(ND)
/// difference algorithm", 1986). Returns none if they differ in more elements than the search supports.
std::optional<std::vector<Gap>> gapsBetween(const std::vector<std::string>& former,
                                            const std::vector<std::string>& now);

/// Returns for each element of the former sequence the index of its equal in the present one, or kNoPartner.
std::vector<std::size_t> partnersOf(const std::vector<Gap>& gaps, std::size_t formerSize);

inline constexpr std::size_t kNoPartner = static_cast<std::size_t>(-1);

}  // namespace mergeloom::graft
