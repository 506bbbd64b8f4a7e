#pragma once

#include "base/Text.h"

#include <array>
#include <string>
#include <string_view>

/// Rules for the names of bookmarks, which are compared regardless of letter case (equalsIgnoringCase,
/// foldCase).
namespace mergeloom::word {

inline constexpr CharacterCount kMaxBookmarkName{40};

/// The characters of ASCII that a bookmark's name may have. Each name is gone through several times.
inline constexpr auto kAsciiBookmarkCharacters = [] {
    std::array<bool, 0x80> characters{};
    for (char32_t character = 0; character < characters.size(); ++character) {
        characters[character] =
            character == U'_' || isDigit(character) || isAsciiLetter(static_cast<char>(character));
    }
    return characters;
}();

/// Returns true for letters, digits and "_".
inline bool isBookmarkCharacter(char32_t character) {
    const bool isAscii = character < kAsciiBookmarkCharacters.size();
    return isAscii ? kAsciiBookmarkCharacters[character] : isLongNameLetter(character);
}
/// Returns true when Word accepts the text as a bookmark's name: at most 40 letters, digits and "_", no digit
/// first.
bool isBookmarkName(std::string_view name);
/// Raises kBadBookmarkName for a text that is no bookmark name.
void checkBookmarkName(const std::string& name);

/// Returns true when Word omits bookmarks of the name from its collections, though it finds them by name.
inline bool isHiddenBookmark(std::string_view name) {
    return name.starts_with('_');
}

}  // namespace mergeloom::word
