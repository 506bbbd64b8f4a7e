#include "droppers/PlaceNames.h"

#include "base/Text.h"

namespace mergeloom {

namespace {

bool isUsable(char32_t character) {
    return isNameLetter(character) || isDigit(character) || character == U'_';
}

std::string usableCharacters(std::string_view name) {
    std::string result = beginsWithDigit(name) ? "x" : "";
    // Few characters of a name are replaced, so the characters between two of them are copied at once.
    std::string_view uncopied = name;
    while (!name.empty()) {
        const std::size_t left = name.size();
        if (isUsable(takeCodePoint(name))) continue;
        result += uncopied.substr(0, uncopied.size() - left);
        uncopied = name;
    }
    return result += uncopied;
}

}  // namespace

bool beginsWithDigit(std::string_view text) {
    return !text.empty() && isDigit(firstCodePoint(text));
}

std::string nameToNormalize(std::string_view name, bool appendT) {
    return name.empty() ? "" : std::string(name) + (appendT ? "T" : "");
}

std::string normalizedName(std::string_view name, CharacterCount maxLength) {
    std::string result{lastCharacters(usableCharacters(name), maxLength)};
    // A digit that is now first is replaced, since a letter before it would exceed the maximum length.
    if (beginsWithDigit(result)) result.front() = 'x';
    return result;
}

}  // namespace mergeloom
