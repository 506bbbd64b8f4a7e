#include "droppers/modWordNormalizeName.h"

#include "base/Text.h"
#include "droppers/FurtherPlaceNames.h"
#include "office/model/word/BookmarkName.h"

#include <algorithm>

namespace mergeloom {

namespace {

constexpr CharacterCount kMaxScannedName{255};

/// Returns the counters that the name of a further place may end in.
std::vector<std::string> counters() {
    std::vector<std::string> texts;
    for (int number = 0; number < 100; ++number) {
        const std::string text = std::to_string(number);
        texts.push_back(text);
        if (number < 10) texts.push_back("0" + text);
    }
    return texts;
}

/// Matches a whole text against a pattern in which "#" matches one digit.
bool matchesDigits(std::string_view text, std::string_view pattern) {
    return std::ranges::equal(text, pattern, [](char character, char wanted) {
        return wanted == '#' ? character >= '0' && character <= '9' : character == wanted;
    });
}

/// Returns true when the bookmark is a further place of the name. The suffix cuts off the beginning of a name
/// that would exceed 40 characters.
bool isFurtherPlace(std::string_view name, std::string_view bookmarkName) {
    for (const std::string_view digits : {"##", "#"}) {
        const std::string suffix = std::string(kFurtherPlaceSuffix) + std::string(digits);
        const std::string_view rest = lastCharacters(name, word::kMaxBookmarkName - utf16Length(suffix));
        if (matchesDigits(bookmarkName, std::string(rest) + suffix)) return true;
    }
    return false;
}

std::string usableCharacters(std::string_view name) {
    std::string result = beginsWithDigit(name) ? "x" : "";
    // Few characters of a name are replaced, so the characters between two of them are copied at once.
    std::string_view uncopied = name;
    while (!name.empty()) {
        const std::size_t left = name.size();
        if (word::isBookmarkCharacter(takeCodePoint(name))) continue;
        result += uncopied.substr(0, uncopied.size() - left);
        uncopied = name;
    }
    return result += uncopied;
}

}  // namespace

bool hasUsableCharacter(std::string_view name) {
    while (!name.empty()) {
        if (word::isBookmarkCharacter(takeCodePoint(name))) return true;
    }
    return false;
}

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

std::string WordNormalizeName(std::string_view rstrName, bool vfAppendT) {
    // Most names of controls need no change.
    if (!vfAppendT && word::isBookmarkName(rstrName)) return std::string(rstrName);
    const std::string name = nameToNormalize(rstrName, vfAppendT);
    return utf16Length(name) > kMaxScannedName ? "" : normalizedName(name, word::kMaxBookmarkName);
}

std::string SimplifyName(std::string_view vstrName) {
    std::string name = RemoveChars(vstrName, ". ");
    if (beginsWithDigit(vstrName)) name.insert(0, "x");
    return name;
}

std::string RemoveChars(std::string_view vstrText, std::string_view vstrChars) {
    const auto isThere = [&](char character) { return vstrText.find(character) != std::string_view::npos; };
    if (std::ranges::none_of(vstrChars, isThere)) return std::string(vstrText);
    std::string result;
    while (!vstrText.empty()) {
        const std::string_view rest = vstrText;
        takeCodePoint(vstrText);
        const std::string_view character = rest.substr(0, rest.size() - vstrText.size());
        if (vstrChars.find(character) == std::string_view::npos) result += character;
    }
    return result;
}

bool IsBookmarkOfName(std::string_view vstrBaseName, std::string_view vstrBookmarkName) {
    const std::string whole = std::string(vstrBaseName) + std::string(kBoundValueSuffix);
    const std::string_view boundValueName = lastCharacters(whole, word::kMaxBookmarkName);
    return equalsIgnoringCase(vstrBookmarkName, vstrBaseName) ||
           equalsIgnoringCase(vstrBookmarkName, boundValueName) ||
           isFurtherPlace(boundValueName, vstrBookmarkName) || isFurtherPlace(vstrBaseName, vstrBookmarkName);
}

std::vector<std::string> PossibleBookmarkNames(std::string_view vstrBaseName) {
    static const std::vector<std::string> allCounters = counters();
    const std::string base(vstrBaseName);
    const std::string boundValueName{
        lastCharacters(base + std::string(kBoundValueSuffix), word::kMaxBookmarkName)};
    std::vector<std::string> names{base, boundValueName};
    for (const std::string& name : {base, boundValueName}) {
        for (const std::string& counter : allCounters) {
            const std::string suffix = std::string(kFurtherPlaceSuffix) + counter;
            const CharacterCount room = word::kMaxBookmarkName - utf16Length(suffix);
            names.push_back(std::string(lastCharacters(name, room)) + suffix);
        }
    }
    return names;
}

}  // namespace mergeloom
