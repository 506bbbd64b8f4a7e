#include "base/Text.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstring>

namespace mergeloom {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kLastOfOneUnit = 0xFFFF;
constexpr char32_t kLastAscii = 0x7F;
constexpr std::uint64_t kHighBitsOfEight = 0x8080808080808080;

std::int64_t unitsOf(char32_t codePoint) {
    return codePoint > kLastOfOneUnit ? 2 : 1;
}

/// Texts are mostly ASCII and long, so they are looked at in pieces of eight bytes.
bool startsWithEightAscii(std::string_view text) {
    std::uint64_t eight = 0;
    if (text.size() < sizeof eight) return false;
    std::memcpy(&eight, text.data(), sizeof eight);
    return (eight & kHighBitsOfEight) == 0;
}

}  // namespace

char32_t takeLongCodePoint(std::string_view& text) {
    const char* bytes = text.data();
    std::int32_t next = 0;
    const auto length = static_cast<std::int32_t>(std::min<std::size_t>(text.size(), 4));
    UChar32 codePoint = 0;
    U8_NEXT(bytes, next, length, codePoint);
    text.remove_prefix(static_cast<std::size_t>(next));
    return codePoint < 0 ? kReplacement : static_cast<char32_t>(codePoint);
}

char32_t firstCodePoint(std::string_view text) {
    return takeCodePoint(text);
}

bool isUtf8(std::string_view text) {
    constexpr std::size_t kReplacementLength = 3;
    while (!text.empty()) {
        const std::size_t before = text.size();
        if (takeCodePoint(text) == kReplacement && before - text.size() != kReplacementLength) return false;
    }
    return true;
}

void appendCodePoint(std::string& text, char32_t codePoint) {
    if (codePoint <= kLastAscii) return text.push_back(static_cast<char>(codePoint));
    char bytes[U8_MAX_LENGTH];
    std::int32_t length = 0;
    const char32_t written =
        U_IS_UNICODE_CHAR(codePoint) || U_IS_UNICODE_NONCHAR(codePoint) ? codePoint : kReplacement;
    U8_APPEND_UNSAFE(bytes, length, written);
    text.append(bytes, static_cast<std::size_t>(length));
}

std::string fromUtf16(std::u16string_view units) {
    std::string text;
    text.reserve(units.size());
    for (std::size_t next = 0; next < units.size();) {
        char32_t codePoint = 0;
        U16_NEXT(units, next, units.size(), codePoint);
        appendCodePoint(text, codePoint);
    }
    return text;
}

std::u16string toUtf16(std::string_view text) {
    std::u16string units;
    while (!text.empty()) {
        const char32_t codePoint = takeCodePoint(text);
        if (U_IS_BMP(codePoint)) {
            units += static_cast<char16_t>(codePoint);
        } else {
            units += static_cast<char16_t>(U16_LEAD(codePoint));
            units += static_cast<char16_t>(U16_TRAIL(codePoint));
        }
    }
    return units;
}

CharacterCount utf16Length(std::string_view text) {
    std::int64_t units = 0;
    while (!text.empty()) {
        if (startsWithEightAscii(text)) {
            units += 8;
            text.remove_prefix(8);
        } else {
            units += unitsOf(takeCodePoint(text));
        }
    }
    return {units};
}

std::size_t byteOffset(std::string_view text, CharacterCount units) {
    std::string_view rest = text;
    for (std::int64_t counted = 0; counted < units.value && !rest.empty();) {
        counted += unitsOf(takeCodePoint(rest));
    }
    return text.size() - rest.size();
}

std::string_view firstCharacters(std::string_view text, CharacterCount units) {
    const std::string_view first = text.substr(0, byteOffset(text, units));
    if (utf16Length(first) <= units) return first;
    return first.substr(0, byteOffset(first, units - CharacterCount{1}));
}

std::string_view lastCharacters(std::string_view text, CharacterCount units) {
    const CharacterCount length = utf16Length(text);
    if (length <= units) return text;
    return text.substr(byteOffset(text, length - units));
}

char32_t foldedCodePoint(char32_t codePoint) {
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(codePoint), U_FOLD_CASE_DEFAULT));
}

std::string foldCase(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    while (!text.empty())
        appendCodePoint(folded, takeFoldedCodePoint(text));
    return folded;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    while (!a.empty() && !b.empty()) {
        if (takeFoldedCodePoint(a) != takeFoldedCodePoint(b)) return false;
    }
    return a.empty() && b.empty();
}

bool equalsIgnoringAsciiCase(std::string_view a, std::string_view b) {
    if (a == b) return true;
    const auto same = [](char x, char y) { return toLowerAscii(x) == toLowerAscii(y); };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), same);
}

std::size_t findIgnoringAsciiCase(std::string_view text, std::string_view part, std::size_t from) {
    if (from > text.size()) return std::string_view::npos;
    const auto same = [](char a, char b) { return toLowerAscii(a) == toLowerAscii(b); };
    const auto start = text.begin() + static_cast<std::ptrdiff_t>(from);
    const auto found = std::search(start, text.end(), part.begin(), part.end(), same);
    if (found == text.end() && !part.empty()) return std::string_view::npos;
    return static_cast<std::size_t>(found - text.begin());
}

std::string toLowerAscii(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char character) { return toLowerAscii(character); });
    return lower;
}

std::string_view trimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    for (std::size_t start = 0;;) {
        const std::size_t end = text.find(separator, start);
        pieces.push_back(text.substr(start, end - start));
        if (end == std::string_view::npos) return pieces;
        start = end + 1;
    }
}

std::string replaceAll(std::string_view text, std::string_view part, std::string_view replacement) {
    std::string result;
    for (std::size_t start = 0;;) {
        const std::size_t found = text.find(part, start);
        result.append(text.substr(start, found - start));
        if (found == std::string_view::npos) return result;
        result.append(replacement);
        start = found + part.size();
    }
}

bool isLongNameLetter(char32_t codePoint) {
    return codePoint <= kLastOfOneUnit && u_isalpha(static_cast<UChar32>(codePoint)) != 0;
}

bool isControlCharacter(char32_t letter) {
    struct Range {
        char32_t first;
        char32_t last;
    };
    constexpr Range kRanges[] = {{0, 0x1F}, {0x7F, 0x9F}, {0x2028, 0x202E}, {0x2066, 0x2069}};
    return std::ranges::any_of(
        kRanges, [&](const Range& range) { return letter >= range.first && letter <= range.last; });
}

}  // namespace mergeloom
