#include "base/Text.h"

#include <algorithm>
#include <cstring>

namespace mergeloom {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kLastOfOneUnit = 0xFFFF;
constexpr char32_t kLastAscii = 0x7F;
constexpr char32_t kLastOfTwoBytes = 0x7FF;
constexpr char32_t kLastCodePoint = 0x10FFFF;
constexpr int kBitsOfNextByte = 6;
constexpr unsigned kMaskOfNextByte = 0x3F;

constexpr char32_t kFirstLong = 0x10000;
constexpr char32_t kFirstLead = 0xD800;
constexpr char32_t kFirstTrail = 0xDC00;
constexpr char32_t kLastTrail = 0xDFFF;

constexpr bool isLeadSurrogate(char32_t unit) {
    return unit >= kFirstLead && unit < kFirstTrail;
}
constexpr bool isTrailSurrogate(char32_t unit) {
    return unit >= kFirstTrail && unit <= kLastTrail;
}
constexpr char32_t codePointOf(char32_t lead, char32_t trail) {
    return kFirstLong + ((lead - kFirstLead) << 10) + (trail - kFirstTrail);
}

/// The bytes that may follow a first byte of UTF-8: how many, and the bounds of the first of them, which keep
/// out surrogates, numbers beyond Unicode and forms that are too long.
struct Sequence {
    std::size_t following;
    unsigned char lowest;
    unsigned char highest;
    unsigned char mask;  ///< the bits of the first byte that count
};

constexpr Sequence sequenceOf(unsigned char first) {
    if (first >= 0xC2 && first <= 0xDF) return {1, 0x80, 0xBF, 0x1F};
    if (first == 0xE0) return {2, 0xA0, 0xBF, 0x0F};
    if (first == 0xED) return {2, 0x80, 0x9F, 0x0F};
    if (first >= 0xE1 && first <= 0xEF) return {2, 0x80, 0xBF, 0x0F};
    if (first == 0xF0) return {3, 0x90, 0xBF, 0x07};
    if (first >= 0xF1 && first <= 0xF3) return {3, 0x80, 0xBF, 0x07};
    if (first == 0xF4) return {3, 0x80, 0x8F, 0x07};
    return {};
}

constexpr char followingByte(char32_t codePoint, int shift) {
    return static_cast<char>(0x80 | ((codePoint >> shift) & kMaskOfNextByte));
}
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
    const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const Sequence sequence = sequenceOf(byteAt(0));
    char32_t codePoint = byteAt(0) & sequence.mask;
    unsigned lowest = sequence.lowest;
    unsigned highest = sequence.highest;
    std::size_t taken = 1;
    while (taken <= sequence.following && taken < text.size() && byteAt(taken) >= lowest &&
           byteAt(taken) <= highest) {
        codePoint = codePoint << kBitsOfNextByte | (byteAt(taken) & kMaskOfNextByte);
        lowest = 0x80;
        highest = 0xBF;
        ++taken;
    }
    text.remove_prefix(taken);
    const bool isWhole = sequence.following > 0 && taken > sequence.following;
    return isWhole ? codePoint : kReplacement;
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
    const char32_t written =
        isLeadSurrogate(codePoint) || isTrailSurrogate(codePoint) || codePoint > kLastCodePoint ? kReplacement
                                                                                                : codePoint;
    if (written <= kLastOfTwoBytes) {
        text += static_cast<char>(0xC0 | written >> 6);
    } else if (written <= kLastOfOneUnit) {
        text += static_cast<char>(0xE0 | written >> 12);
        text += followingByte(written, 6);
    } else {
        text += static_cast<char>(0xF0 | written >> 18);
        text += followingByte(written, 12);
        text += followingByte(written, 6);
    }
    text += followingByte(written, 0);
}

std::string fromUtf16(std::u16string_view units) {
    std::string text;
    text.reserve(units.size());
    for (std::size_t next = 0; next < units.size(); ++next) {
        const char32_t unit = units[next];
        const bool isPair =
            isLeadSurrogate(unit) && next + 1 < units.size() && isTrailSurrogate(units[next + 1]);
        // Half of a pair is written as U+FFFD.
        appendCodePoint(text, isPair ? codePointOf(unit, units[++next]) : unit);
    }
    return text;
}

std::u16string toUtf16(std::string_view text) {
    std::u16string units;
    while (!text.empty()) {
        const char32_t codePoint = takeCodePoint(text);
        if (codePoint <= kLastOfOneUnit) {
            units += static_cast<char16_t>(codePoint);
        } else {
            units += static_cast<char16_t>(kFirstLead + ((codePoint - kFirstLong) >> 10));
            units += static_cast<char16_t>(kFirstTrail + ((codePoint - kFirstLong) & 0x3FF));
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
