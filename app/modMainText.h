#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Text routines of `modMain`.
namespace mergeloom {

enum class TrimMode { Left = 0, Both = 1, Right = 2 };

/// Returns whether the character at the position (a byte's offset) is inside double quotes, or else inside
/// single quotes: an odd number of them up to and including the position and at least one from the position
/// on.
bool IsInsideQuotes(std::string_view text, std::size_t position);

/// Returns how many parts splitting the text at the separator yields, less one; 0 for an empty text.
std::int32_t CountOccurrences(std::string_view text, std::string_view separator);

/// Removes runs of the character (a text of any length) from the ends that the mode names. A left run is
/// removed only when at least two characters follow it, a right run only when something is left before it, so
/// that a text of nothing but the character stays as it is.
std::string TrimCharacter(std::string_view text, std::string_view character, TrimMode mode);

}  // namespace mergeloom
