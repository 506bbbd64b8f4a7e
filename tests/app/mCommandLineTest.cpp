#include "app/mCommandLine.h"
#include "app/modMain.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace mergeloom {
namespace {

/// Returns the slots that are not empty after parsing.
using Slots = std::map<int, std::string>;

Slots slotsOf(const CommandLineText& commandLine) {
    std::string raw;
    GetCommandLineArguments(commandLine, raw);
    Slots slots;
    for (int index = 0; index <= 20; ++index) {
        const std::string value = GetCommandLineArgument(index);
        if (!value.empty()) slots[index] = value;
    }
    return slots;
}

TEST(mCommandLine, ParsesTexts) {
    struct Case {
        std::string text;
        Slots slots;
    };
    const std::vector<Case> cases = {
        {"", {}},
        {"a.xml", {}},
        {"-XMLFILE a.xml", {{0, "a.xml"}}},
        {"/xmlfile a.xml", {{0, "a.xml"}}},
        {"-hidden -xmlfile a.xml", {{7, "{empty}"}, {0, "a.xml"}}},
        {"-hidden", {{7, "{empty}"}}},
        {"-hidden formview", {{7, "formview"}}},
        {R"(-template c:\my folder\t.dot -excel)", {{1, R"(c:\my folder\t.dot)"}, {9, "{empty}"}}},
        // The first " -" is inside quotes, so the value extends to the end, and only the outer quotes are
        // removed.
        {R"(-template "c:\a -b\t.dot" -xmlfile x.xml)",
         {{1, R"(c:\a -b\t.dot" -xmlfile x.xml)"}, {0, "x.xml"}}},
        {R"(-template "c:\a -b\t.dot" /excel)", {{1, R"(c:\a -b\t.dot)"}, {9, "{empty}"}}},
        // Quotes do not protect the last prefix.
        {R"(-template "c:\a /b\t.dot")", {{1, R"(c:\a)"}}},
        {"-template 'c:\\a -b' -hidden", {{1, "'c:\\a -b' -hidden"}, {7, "{empty}"}}},
        {"/xmlfile a.xml -xmlfile b.xml", {{0, "b.xml"}}},
        {"/xmlfile a.xml /hidden", {{0, "a.xml"}, {7, "{empty}"}}},
        {"-fullx", {{4, "x"}}},
        {"-xmlfile \"a.xml\" -label \" l.doc \"", {{0, "a.xml"}, {5, "l.doc"}}},
        {"-xmlfile \"\"", {{0, "\"\""}}},
        {"-xmlfile \"a", {{0, "\"a"}}},
        {"-deletexmlfile", {{8, "{empty}"}}},
        {"-xmlfile c:\\a-label.xml", {{0, "c:\\a-label.xml"}, {5, ".xml"}}},
    };
    for (const Case& one : cases)
        EXPECT_EQ(slotsOf(CommandLineText(one.text)), one.slots) << one.text;
}

TEST(mCommandLine, ParsesArguments) {
    struct Case {
        std::vector<std::string> arguments;
        Slots slots;
    };
    const std::vector<Case> cases = {
        {{}, {}},
        {{"-hidden", "-xmlfile", "/srv/excel/label forms/orders.xml", "-template", "/tmp/out.dotx"},
         {{7, "{empty}"}, {0, "/srv/excel/label forms/orders.xml"}, {1, "/tmp/out.dotx"}}},
        {{"-template", "/tmp/out.dotx", "-xmlfile", "/hidden files/a -excel/-full.xml", "-hidden"},
         {{7, "{empty}"}, {0, "/hidden files/a -excel/-full.xml"}, {1, "/tmp/out.dotx"}}},
        {{"-xmlfile", "./-fields.xml", "-Hidden", "formview"}, {{0, "./-fields.xml"}, {7, "formview"}}},
        {{"-xmlfile", "/tmp/-hidden"}, {{0, "/tmp/-hidden"}}},
        {{"-xmlfile", "/fields.xml"}, {{0, "/fields.xml"}}},
        {{"-hiddenformview", "-xmlfile/srv/a-b.xml"}, {{7, "formview"}, {0, "/srv/a-b.xml"}}},
        {{"-fields.xml"}, {{6, ".xml"}}},
        {{"-fields", "a,-label, b", "-listing"}, {{6, "a,-label, b"}, {3, "{empty}"}}},
        {{"-xmlfile", "O'Brien.xml", "-template", "D'Arcy \"x\".dotx"},
         {{0, "O'Brien.xml"}, {1, "D'Arcy \"x\".dotx"}}},
        {{"-xmlfile", "\"a.xml\"", "-label", "\""}, {{0, "\"a.xml\""}, {5, "\""}}},
        {{"-xmlfile", " a.xml ", "-template", "  "}, {{0, " a.xml "}, {1, "  "}}},
        {{"-xmlfile", "", "-hidden", ""}, {{0, "{empty}"}, {7, "{empty}"}}},
        {{"-xmlfile", "my", "orders.xml", "-excel"}, {{0, "my orders.xml"}, {9, "{empty}"}}},
        {{"-xmlfile", "\x1Ah\x1A\xFFü.xml"}, {{0, "\x1Ah\x1A\xFFü.xml"}}},
        // A value ends at the next switch, whichever prefixes the two have.
        {{"-xmlfile", "a.xml", "/hidden", "-template", "/t.dotx"},
         {{0, "a.xml"}, {7, "{empty}"}, {1, "/t.dotx"}}},
        {{"/hidden", "/xmlfile", "a.xml", "-template", "t.dotx"},
         {{0, "a.xml"}, {7, "{empty}"}, {1, "t.dotx"}}},
        {{"/xmlfile", "a.xml", "-xmlfile", "b.xml"}, {{0, "b.xml"}}},
        {{"stray -hidden", "-excel"}, {{9, "{empty}"}}},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(slotsOf(CommandLineText::fromArguments(one.arguments)), one.slots)
            << testing::PrintToString(one.arguments);
    }
}

/// On Windows the switches are searched for in the text after the options.
TEST(mCommandLine, FindsTheTextAfterArgumentsOfWindows) {
    struct Case {
        std::string line;
        std::size_t count;
        std::string rest;
    };
    const std::vector<Case> cases = {
        {"-hidden -excel", 0, "-hidden -excel"},
        {"  --exit-status \t -hidden", 1, "-hidden"},
        {R"(--object "Form Orders" -xmlfile c:\my folder\a.xml)", 2, R"(-xmlfile c:\my folder\a.xml)"},
        {R"(--object="Form Orders" -hidden)", 1, "-hidden"},
        {R"("c:\folder\\" -hidden)", 1, "-hidden"},
        {R"("a \"quoted\" name" -hidden)", 1, "-hidden"},
        {R"("12\" wide" -hidden)", 1, "-hidden"},
        {"--version", 1, ""},
        {"--version", 5, ""},
        {"", 1, ""},
    };
    for (const Case& one : cases)
        EXPECT_EQ(afterArguments(one.line, one.count), one.rest) << one.line;
}

TEST(mCommandLine, HandsBackTheTextAndForgetsAnEarlierOne) {
    std::string raw;
    GetCommandLineArguments(CommandLineText("-hidden"), raw);
    const std::vector<std::string> arguments = {"-xmlfile", "/a -b.xml"};
    GetCommandLineArguments(CommandLineText::fromArguments(arguments), raw);
    EXPECT_EQ(raw, "-xmlfile /a -b.xml");
    EXPECT_EQ(gCommandLineArguments.size(), 11U);
    EXPECT_EQ(GetCommandLineArgument(kXmlFileSwitch), "/a -b.xml");
    EXPECT_EQ(GetCommandLineArgument(kHiddenSwitch), "");
    EXPECT_EQ(GetCommandLineArgument(-1), "");
    GetCommandLineArguments(CommandLineText(""), raw);
    EXPECT_THAT(gCommandLineArguments, testing::Each(""));
}

TEST(modMainText, TellsWhatLiesInsideQuotes) {
    struct Case {
        std::string text, inside;  ///< a "*" under every character that lies inside
    };
    const std::vector<Case> cases = {
        {R"(a "b" c)", "  **   "},  // the closing quote closes at its own place
        {R"(a 'b' c)", "  **   "}, {R"(a "b 'c" d' e)", "  ********   "},
        {R"(a "b c)", "  *   "},  // nothing closes this quote but the quote itself
        {R"("a" "b")", "**  **"},  {"a b", "   "},
    };
    for (const Case& one : cases) {
        std::string inside;
        for (std::size_t k = 0; k < one.text.size(); ++k)
            inside += IsInsideQuotes(one.text, k) ? '*' : ' ';
        EXPECT_EQ(inside, one.inside + std::string(one.text.size() - one.inside.size(), ' ')) << one.text;
    }
    EXPECT_FALSE(IsInsideQuotes("\"a\"", 3));
}

TEST(modMainText, CountsOccurrences) {
    EXPECT_EQ(CountOccurrences("a;b;;c", ";"), 3);
    EXPECT_EQ(CountOccurrences("aaaa", "aa"), 2);
    EXPECT_EQ(CountOccurrences("abc", ";"), 0);
    EXPECT_EQ(CountOccurrences("", ";"), 0);
    EXPECT_EQ(CountOccurrences("abc", ""), 0);
}

TEST(modMainText, TrimsCharacters) {
    struct Case {
        std::string text, character, left, both, right;
    };
    const std::vector<Case> cases = {
        {"\"\"ab\"\"", "\"", "ab\"\"", "ab", "\"\"ab"},
        {"\"a\"", "\"", "a\"", "a", "\"a"},
        {"\"a", "\"", "\"a", "\"a", "\"a"},  // the last character never goes with the left run
        {"\"é", "\"", "\"é", "\"é", "\"é"},
        {"\"\"\"", "\"", "\"\"\"", "\"\"\"", "\"\"\""},
        {"ababxyab", "ab", "xyab", "xy", "ababxy"},
        {"", "\"", "", "", ""},
        {"aa", "", "aa", "aa", "aa"},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(TrimCharacter(one.text, one.character, TrimMode::Left), one.left) << one.text;
        EXPECT_EQ(TrimCharacter(one.text, one.character, TrimMode::Both), one.both) << one.text;
        EXPECT_EQ(TrimCharacter(one.text, one.character, TrimMode::Right), one.right) << one.text;
    }
}

}  // namespace
}  // namespace mergeloom
