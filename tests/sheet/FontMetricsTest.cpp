#include "office/embedded/sheet/FontMetrics.h"

#include <gtest/gtest.h>

namespace mergeloom::embedded {
namespace {

CellFont regular(const std::string& name, double size) {
    return {name, size, false, false};
}

CellFont bold(const std::string& name, double size) {
    return {name, size, true, false};
}

// The widths that Excel uses at 96 dots per inch, which result from the column widths that it writes.
TEST(FontMetrics, knowsTheDigitsOfDefaultFonts) {
    EXPECT_EQ(digitWidth(regular("Calibri", 11)), 7);
    EXPECT_EQ(digitWidth(regular("CALIBRI", 11)), 7);
    EXPECT_EQ(digitWidth(regular("Aptos Narrow", 11)), 7);
    EXPECT_EQ(digitWidth(regular("Arial", 10)), 7);
    EXPECT_EQ(digitWidth(regular("Arial", 12)), 9);
    EXPECT_EQ(digitWidth(regular("Calibri", 12)), 8);
    EXPECT_EQ(digitWidth(regular("Times New Roman", 12)), 8);
    EXPECT_EQ(digitWidth(regular("Courier New", 10)), 8);
    EXPECT_EQ(digitWidth(regular("Verdana", 10)), 8);
    EXPECT_EQ(digitWidth(regular("Tahoma", 8)), 6);
}

TEST(FontMetrics, takesTheMostAlikeFontForAnUnknownOne) {
    const auto width = [](const char* name) { return textWidth("Willow 10", regular(name, 10)); };
    EXPECT_DOUBLE_EQ(width("Acme Grotesk"), width("Arial"));
    EXPECT_DOUBLE_EQ(width(""), width("Arial"));
    EXPECT_DOUBLE_EQ(width("Acme Mono"), width("Courier New"));
    EXPECT_DOUBLE_EQ(width("Acme Sans Serif"), width("Arial"));
    EXPECT_DOUBLE_EQ(width("Acme Serif"), width("Times New Roman"));
    EXPECT_DOUBLE_EQ(width("Acme Condensed"), width("Arial Narrow"));
}

TEST(FontMetrics, measuresALineOfText) {
    // Arial at 75 points is 100 pixels: A is 0.667 em wide, i 0.222, a blank 0.278, a digit 0.556.
    const CellFont arial = regular("Arial", 75);
    EXPECT_NEAR(textWidth("Ai 7", arial), 66.7 + 22.2 + 27.8 + 55.6, 0.01);
    EXPECT_NEAR(textWidth("Ai", bold("Arial", 75)), 72.2 + 27.8, 0.01);
    EXPECT_EQ(textWidth("", arial), 0);
    struct {
        const char* text;
        double width;
    } const cases[] = {
        {"\u00C4", 66.7},     // as its base letter
        {"\u0159", 33.3},     //
        {"\u00D7", 58.4},     // as a plus sign
        {"e\u0301", 55.6},    // a combining accent
        {"\u200B", 0},        //
        {"\u6F22", 100},      // an ideograph
        {"\U0001F600", 100},  //
        {"\u0416", 55.6},     // another script: as a digit
        {"\n\t", 0},          //
        {"\xFF", 55.6},       // no UTF-8
    };
    for (const auto& [text, width] : cases)
        EXPECT_NEAR(textWidth(text, arial), width, 0.01) << text;
}

TEST(FontMetrics, scalesTheLettersOfAFontThatIsOnlyAlike) {
    // Tahoma's digits have 0.546 em, those of the similar font 0.636. A bold one becomes wider by the same
    // factor as in that font.
    const CellFont tahoma = regular("Tahoma", 75);
    EXPECT_NEAR(textWidth("0", tahoma), 54.6, 0.01);
    EXPECT_NEAR(textWidth("0", bold("Tahoma", 75)), 69.6 * 54.6 / 63.6, 0.01);
}

// Compares the rows of new workbooks with these default fonts.
TEST(FontMetrics, knowsTheHeightOfARow) {
    EXPECT_DOUBLE_EQ(lineHeight(regular("Calibri", 11)), 15);
    EXPECT_DOUBLE_EQ(lineHeight(regular("Arial", 10)), 12.75);
    EXPECT_DOUBLE_EQ(lineHeight(regular("Times New Roman", 10)), 12.75);
    EXPECT_DOUBLE_EQ(lineHeight(regular("Calibri", 16)), 21);
}

}  // namespace
}  // namespace mergeloom::embedded
