#include "base/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom {
namespace {

using testing::ElementsAre;

std::vector<char32_t> codePointsOf(std::string_view text) {
    std::vector<char32_t> codePoints;
    while (!text.empty())
        codePoints.push_back(takeCodePoint(text));
    return codePoints;
}

TEST(Text, ReadsCodePointsAndReplacesWhatIsNotUtf8) {
    struct Case {
        std::string text;
        std::vector<char32_t> codePoints;
    };
    const std::vector<Case> cases = {
        {"aé€😀", {U'a', U'é', U'€', U'😀'}},
        {"\xFF"
         "a",
         {0xFFFD, U'a'}},
        {"\x80\xBF", {0xFFFD, 0xFFFD}},
        {"\xC3", {0xFFFD}},                          // cut off
        {"\xE2\x82", {0xFFFD}},                      // cut off
        {"\xC0\xAF", {0xFFFD, 0xFFFD}},              // "/" written too long
        {"\xED\xA0\x80", {0xFFFD, 0xFFFD, 0xFFFD}},  // half of a surrogate pair
        {"\xF4\x90\x80\x80", {0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD}},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(codePointsOf(one.text), one.codePoints) << one.text;
        // Lengths and offsets count the same characters.
        CharacterCount units{0};
        for (const char32_t codePoint : one.codePoints)
            units = units + CharacterCount{codePoint > 0xFFFF ? 2 : 1};
        EXPECT_EQ(utf16Length(one.text), units) << one.text;
        EXPECT_EQ(byteOffset(one.text, units), one.text.size()) << one.text;
    }
}

TEST(Text, WritesCodePointsAndUtf16) {
    std::string text;
    for (const char32_t codePoint :
         {U'a', U'€', U'😀', char32_t{0xD800}, char32_t{0x110000}, char32_t{0xFFFF}}) {
        appendCodePoint(text, codePoint);
    }
    EXPECT_EQ(text, "a€😀\uFFFD\uFFFD\uFFFF");
    EXPECT_EQ(fromUtf16(u"a€😀"), "a€😀");
    const std::u16string halves = {0xD83D, u'a', 0xDE00, 0xD83D};
    EXPECT_EQ(fromUtf16(halves), "\uFFFDa\uFFFD\uFFFD");
    EXPECT_EQ(toUtf16("a€😀"), u"a€😀");
    EXPECT_EQ(toUtf16("a\xFFz"), u"a\uFFFDz");
}

TEST(Text, CountsUtf16UnitsOfLongTexts) {
    for (std::size_t before = 0; before < 20; ++before) {
        const std::string text = std::string(before, 'a') + "ü😀" + std::string(17, 'b');
        EXPECT_EQ(utf16Length(text).value, static_cast<std::int64_t>(before) + 3 + 17);
    }
}

TEST(Text, CutsBetweenCharactersOnly) {
    const std::string text = "a😀b";
    const std::vector<std::size_t> offsets = {0, 1, 5, 5, 6, 6};
    const std::vector<std::string> heads = {"", "a", "a", "a😀", "a😀b", "a😀b"};
    const std::vector<std::string> tails = {"", "b", "b", "😀b", "a😀b", "a😀b"};
    for (std::size_t units = 0; units < offsets.size(); ++units) {
        const CharacterCount count{static_cast<std::int64_t>(units)};
        EXPECT_EQ(byteOffset(text, count), offsets[units]) << units;
        EXPECT_EQ(firstCharacters(text, count), heads[units]) << units;
        EXPECT_EQ(lastCharacters(text, count), tails[units]) << units;
    }
}

TEST(Text, ComparesWithoutRegardToCase) {
    struct Case {
        std::string a, b;
        bool equal;
    };
    const std::vector<Case> cases = {
        {"Straße", "STRAßE", true},
        {"ÄÖÜ", "äöü", true},
        {"Σας", "ΣΑΣ", true},
        {"\U00010400", "\U00010428", true},
        {"Straße", "STRASSE", false},
        {"abc", "abcd", false},
        {"", "", true},
        {"I", "ı", false},
        {"i", "İ", false},
        {"µm", "μM", true},    // the micro sign and the Greek letter
        {"ſee", "SEE", true},  // the long s
        {"Å K", "å k", true},  // the signs of Angstrom and Kelvin
        {"ẞ", "ß", true},
        {"ǅ", "ǆ", true},
        {"Ꭰᏸ", "ꭰᏰ", true},
        {"Ⅷ", "ⅷ", true},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(equalsIgnoringCase(one.a, one.b), one.equal) << one.a << " " << one.b;
        EXPECT_EQ(foldCase(one.a) == foldCase(one.b), one.equal) << one.a << " " << one.b;
    }
}

TEST(Text, FindsWithoutRegardToAsciiCase) {
    EXPECT_EQ(findIgnoringAsciiCase("a -HidDen -hidden", "-hidden"), 2U);
    EXPECT_EQ(findIgnoringAsciiCase("a -HidDen -hidden", "-hidden", 3), 10U);
    EXPECT_EQ(findIgnoringAsciiCase("abc", "cd"), std::string_view::npos);
    EXPECT_EQ(findIgnoringAsciiCase("abc", "c", 4), std::string_view::npos);
    EXPECT_EQ(findIgnoringAsciiCase("É", "é"), std::string_view::npos);
    EXPECT_EQ(toLowerAscii("AZaz[É"), "azaz[É");
}

TEST(Text, SplitsTrimsAndReplaces) {
    EXPECT_THAT(split("a;;b;", ';'), ElementsAre("a", "", "b", ""));
    EXPECT_THAT(split("", ';'), ElementsAre(""));
    EXPECT_EQ(trimBlanks("  a\t b  "), "a\t b");
    EXPECT_EQ(trimBlanks("   "), "");
    EXPECT_EQ(replaceAll("%1 and %1", "%1", "%1%1"), "%1%1 and %1%1");
    EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
}

TEST(Text, TakesLettersOfOneUnitForNames) {
    for (const char32_t letter : {U'a', U'Ж', U'ß', U'漢', U'ª', U'Ꭰ', U'ʰ'})
        EXPECT_TRUE(isNameLetter(letter));
    for (const char32_t other : {U'1', U'_', U'-', U'€', U'\U00010400', char32_t{0x301}, U'Ⅷ', U'〇', U'²'}) {
        EXPECT_FALSE(isNameLetter(other));
    }
}

}  // namespace
}  // namespace mergeloom
