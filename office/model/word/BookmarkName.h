#pragma once

#include "base/Text.h"

#include <string>
#include <string_view>

/// Rules for the names of bookmarks, which are compared without regard to letter case (equalsIgnoringCase,
/// foldCase).
namespace mergeloom::word {

inline constexpr CharacterCount kMaxBookmarkName{40};

/// Returns whether Word accepts the text as a bookmark's name: at most 40 letters, digits and "_", no digit
/// first.
bool isBookmarkName(std::string_view name);
/// Raises kBadBookmarkName for a text that is no bookmark name.
void checkBookmarkName(const std::string& name);

/// Returns whether Word leaves bookmarks of the name out of its collections, though it finds them by name.
inline bool isHiddenBookmark(std::string_view name) {
    return name.starts_with('_');
}

}  // namespace mergeloom::word
