#include "droppers/PlaceNames.h"

#include "base/Text.h"

namespace mergeloom {

namespace {

std::string usableCharacters(std::string_view name) {
    std::string result = beginsWithDigit(name) ? "x" : "";
    result.reserve(result.size() + name.size());
    while (!name.empty()) {
        const std::string_view rest = name;
        const char32_t character = takeCodePoint(name);
        if (isNameLetter(character) || isDigit(character) || character == U'_') {
            result += rest.substr(0, rest.size() - name.size());
        }
    }
    return result;
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
