#pragma once

#include "base/Text.h"

#include <string>
#include <string_view>

/// The names of bookmarks, which are compared without regard to letter case (equalsIgnoringCase, foldCase).
namespace mergeloom::word {

inline constexpr CharacterCount kMaxBookmarkName{40};

/// Returns true for what Word takes as a bookmark's name: at most 40 letters, digits and "_", no digit first.
bool isBookmarkName(std::string_view name);
/// Raises kBadBookmarkName for what is no bookmark name.
void checkBookmarkName(const std::string& name);

/// Word keeps bookmarks of such names out of its collections, though they are found by name.
inline bool isHiddenBookmark(std::string_view name) {
    return name.starts_with('_');
}

}  // namespace mergeloom::word
