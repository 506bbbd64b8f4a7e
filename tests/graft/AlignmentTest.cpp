#include "office/graft/SequenceAlignment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom::graft {

namespace {

struct Script {
    std::string former;
    std::string now;
    std::string gaps;  ///< "former>now" for each
};

std::vector<std::string> lettersOf(const std::string& text) {
    std::vector<std::string> letters;
    for (const char letter : text)
        letters.emplace_back(1, letter);
    return letters;
}

std::string gapsOf(const Script& row) {
    std::string all;
    const auto gaps = gapsBetween(lettersOf(row.former), lettersOf(row.now));
    for (const Gap& gap : *gaps) {
        all += (all.empty() ? "" : " ") +
               row.former.substr(gap.formerStart, gap.formerEnd - gap.formerStart) + ">" +
               row.now.substr(gap.nowStart, gap.nowEnd - gap.nowStart);
    }
    return all;
}

TEST(SequenceAlignmentTest, FindsTheShortestScript) {
    const Script cases[] = {
        {"", "", ""},
        {"abc", "abc", ""},
        {"abc", "abxc", ">x"},
        {"abc", "ac", "b>"},
        {"abc", "axc", "b>x"},
        {"", "ab", ">ab"},
        {"ab", "", "ab>"},
        {"aaa", "aa", "a>"},
        {"abcdefgh", "xbcdzfgh", "a>x e>z"},
        {"abcabba", "cbabac", "ab> >b b> >c"},
    };
    for (const Script& row : cases) {
        const auto gaps = gapsBetween(lettersOf(row.former), lettersOf(row.now));
        ASSERT_TRUE(gaps);
        // Several scripts may be equally short, so their length and their effect are compared.
        std::string made;
        std::size_t at = 0;
        for (const Gap& gap : *gaps) {
            made += row.former.substr(at, gap.formerStart - at) +
                    row.now.substr(gap.nowStart, gap.nowEnd - gap.nowStart);
            at = gap.formerEnd;
        }
        made += row.former.substr(at);
        EXPECT_EQ(made, row.now) << gapsOf(row);
        EXPECT_LE(gapsOf(row).size(), std::max<std::size_t>(row.gaps.size(), 1)) << row.former << gapsOf(row);
    }
}

TEST(SequenceAlignmentTest, PairsWhatIsEqual) {
    const auto gaps = gapsBetween(lettersOf("abcd"), lettersOf("xbd"));
    EXPECT_THAT(partnersOf(*gaps, 4), testing::ElementsAre(kNoPartner, 1U, kNoPartner, 2U));
}

}  // namespace

}  // namespace mergeloom::graft
