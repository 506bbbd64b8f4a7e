#include "droppers/modWordNormalizeName.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mergeloom {
namespace {

std::string times(int count, const std::string& text) {
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

TEST(WordNormalizeName, MakesBookmarkNames) {
    struct Case {
        std::string name, expected;
        bool appendT = false;
    };
    const std::vector<Case> cases{
        {"", ""},
        {"", "", true},
        {"Order Date", "OrderDate"},
        {"Orders", "OrdersT", true},
        {"Ümlaut-Feld", "ÜmlautFeld"},
        {"_a.b!c", "_abc"},
        {"?! -", ""},
        {"?! -", "T", true},
        {"1st", "x1st"},
        {"2007 Sales", "x2007Sales"},
        {" 5a", "xa"},
        {"a5", "a5"},
        {"Smile\U0001F600y", "Smiley"},
        {"broken\xFFname", "brokenname"},
        // 40 characters are kept, and the last 40 of longer names.
        {times(40, "é"), times(40, "é")},
        {"Begin" + times(40, "é"), times(40, "é")},
        {"1" + times(38, "a"), "x1" + times(38, "a")},
        {"1" + times(39, "a"), "x" + times(39, "a")},
        {"1" + times(40, "a"), times(40, "a")},
        {"abcd7" + times(39, "z"), "x" + times(39, "z")},
        {times(41, "a"), times(39, "a") + "T", true},
        // The scan is limited to the number of characters that a byte can count.
        {times(255, "a"), times(40, "a")},
        {times(256, "a"), ""},
        {times(255, "a"), "", true},
        {times(128, "\U0001F600"), ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(WordNormalizeName(c.name, c.appendT), c.expected) << c.name;
    }
}

TEST(SimplifyName, TakesOutPointsAndBlanksOnly) {
    EXPECT_EQ(SimplifyName(""), "");
    EXPECT_EQ(SimplifyName("Order Details.Unit Price"), "OrderDetailsUnitPrice");
    EXPECT_EQ(SimplifyName("1st. Größe-%"), "x1stGröße-%");
    EXPECT_EQ(SimplifyName(" 5a"), "5a");
}

TEST(RemoveChars, KeepsTheOrderAndMindsTheCase) {
    EXPECT_EQ(RemoveChars("Aabéß,a", "aß"), "Abé,");
    EXPECT_EQ(RemoveChars("unchanged", ""), "unchanged");
    // Characters that share bytes with an unwanted one are kept.
    EXPECT_EQ(RemoveChars("éè", "é"), "è");
}

TEST(IsBookmarkOfName, KnowsEveryPlaceOfAName) {
    const std::string longName = "abcde" + times(35, "z");
    struct Case {
        std::string base, bookmark;
        bool expected;
    };
    const std::vector<Case> cases{
        {"OrderDate", "orderdate", true},
        {"OrderDate", "ORDERDATE_BV", true},
        {"OrderDate", "OrderDate_ref1", true},
        {"OrderDate", "OrderDate_ref42", true},
        {"OrderDate", "OrderDate_bv_ref9", true},
        {"OrderDate", "OrderDate_bv_ref10", true},
        {"OrderDate", "OrderDate_ref100", false},
        {"OrderDate", "orderDate_ref1", false},
        {"OrderDate", "OrderDate_refx", false},
        {"OrderDate", "OrderDate_ref", false},
        {"OrderDate", "OrderDates", false},
        {longName, longName, true},
        {longName, times(35, "z") + "_ref1", true},
        {longName, times(34, "z") + "_ref12", true},
        {longName, times(35, "z") + "_ref12", false},
        {longName, "de" + times(35, "z") + "_bv", true},
        {longName, times(32, "z") + "_bv_ref1", true},
        {longName, times(31, "z") + "_bv_ref12", true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(IsBookmarkOfName(c.base, c.bookmark), c.expected) << c.base << " " << c.bookmark;
    }
}

/// The names that the name rule gives to further places are recognised.
TEST(IsBookmarkOfName, AgreesWithTheNameRule) {
    for (int length = 1; length <= 40; ++length) {
        const std::string base = times(length, "n");
        for (const char* suffix : {"", "_bv", "_ref1", "_ref99", "_bv_ref1", "_bv_ref99"}) {
            EXPECT_TRUE(IsBookmarkOfName(base, WordNormalizeName(base + suffix, false))) << length << suffix;
        }
        const std::vector<std::string> possible = PossibleBookmarkNames(base);
        EXPECT_EQ(possible.size(), 2U + 2U * 110U);
        for (const std::string& name : possible) {
            EXPECT_TRUE(IsBookmarkOfName(base, name)) << name;
        }
    }
}

}  // namespace
}  // namespace mergeloom
