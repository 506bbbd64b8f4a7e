#include "droppers/modExcelNormalizeName.h"
#include "droppers/modWordNormalizeName.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mergeloom {
namespace {

TEST(ExcelNormalizeName, FollowsTheRuleOfWordsNames) {
    for (const char* name : {"", "Order Date", "Ümlaut-Feld", "_a.b!c", "?! -", "1st", " 5a", "a5"}) {
        for (const bool appendT : {false, true}) {
            EXPECT_EQ(ExcelNormalizeName(name, appendT), WordNormalizeName(name, appendT)) << name;
        }
    }
}

TEST(ExcelNormalizeName, KeepsTheLast255Characters) {
    struct Case {
        std::string name, expected;
        bool appendT = false;
    };
    const std::string end(254, 'z');
    const std::vector<Case> cases{
        {"a" + end, "a" + end},
        {"begin" + end, "n" + end},
        {"begin7" + end, "x" + end},
        {"1" + end, "x" + end},
        {"begin" + end, end + "T", true},
        {"7" + end.substr(1), "x7" + end.substr(1)},
        {std::string(300, 'a'), std::string(255, 'a')},
        {std::string(300, ' ') + "a", "a"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ExcelNormalizeName(c.name, c.appendT), c.expected) << c.name;
    }
}

}  // namespace
}  // namespace mergeloom
