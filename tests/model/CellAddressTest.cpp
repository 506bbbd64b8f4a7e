#include "office/model/excel/CellAddress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom::excel {
namespace {

TEST(CellAddress, ReadsAndWritesCells) {
    const struct {
        std::string_view text;
        CellPosition cell;
        std::string_view written;
    } cases[] = {
        {"A1", {1, 1}, "A1"},        {"z9", {9, 26}, "Z9"},
        {"AA10", {10, 27}, "AA10"},  {"$ZZ$3", {3, 702}, "ZZ3"},
        {"AAA$1", {1, 703}, "AAA1"}, {"XFD1048576", {kLastRow, kLastColumn}, "XFD1048576"},
        {"B007", {7, 2}, "B7"},
    };
    for (const auto& [text, cell, written] : cases) {
        EXPECT_EQ(parseCell(text), cell) << text;
        EXPECT_EQ(addressOf(cell), written);
    }
    for (const char* text : {"", "A", "1", "A0", "XFE1", "A1048577", "A1B", "1A", "A-1", "A1:A1", " A1", "$",
                             "A99999999999", "AAAAAAAAAAAA1"}) {
        EXPECT_FALSE(parseCell(text)) << text;
    }
}

TEST(CellAddress, ReadsAndWritesAreas) {
    const struct {
        std::string_view text;
        CellArea area;
        std::string_view relative, absolute;
    } cases[] = {
        {"B3", {{3, 2}, {3, 2}}, "B3", "$B$3"},
        {"B3:B3", {{3, 2}, {3, 2}}, "B3", "$B$3"},
        {"$D$4:$B$3", {{3, 2}, {4, 4}}, "B3:D4", "$B$3:$D$4"},
        {"B4:D3", {{3, 2}, {4, 4}}, "B3:D4", "$B$3:$D$4"},
        {"4:3", {{3, 1}, {4, kLastColumn}}, "3:4", "$3:$4"},
        {"$D:$B", {{1, 2}, {kLastRow, 4}}, "B:D", "$B:$D"},
    };
    for (const auto& [text, area, relative, absolute] : cases) {
        EXPECT_EQ(parseArea(text), area) << text;
        EXPECT_EQ(addressOf(area), relative);
        EXPECT_EQ(absoluteAddressOf(area), absolute);
    }
    for (const char* text : {"", ":", "A1:", ":A1", "A:1", "A1:2", "A1:B", "A1:B2:C3", "A1:XFE1"}) {
        EXPECT_FALSE(parseArea(text)) << text;
    }
    EXPECT_THAT(parseAreas("A1  junk B2:C3"),
                testing::ElementsAre(CellArea{{1, 1}, {1, 1}}, CellArea{{2, 2}, {3, 3}}));
}

TEST(CellAddress, AreasMeetWhereBothHaveCells) {
    const CellArea area{{3, 2}, {4, 4}};
    EXPECT_EQ(intersection(area, {{4, 4}, {9, 9}}), (CellArea{{4, 4}, {4, 4}}));
    EXPECT_EQ(intersection(area, {{5, 2}, {9, 9}}), std::nullopt);
    EXPECT_EQ(intersection(area, {{1, 5}, {9, 9}}), std::nullopt);
    EXPECT_TRUE(area.contains({4, 2}));
    EXPECT_FALSE(area.contains({4, 5}));
    EXPECT_TRUE(isInSheet({{1, 1}, {kLastRow, kLastColumn}}));
    EXPECT_FALSE(isInSheet({{1, 1}, {kLastRow + 1, 1}}));
    EXPECT_FALSE(isInSheet({{0, 1}, {1, 1}}));
    EXPECT_FALSE(isInSheet({{2, 1}, {1, 1}}));
}

}  // namespace
}  // namespace mergeloom::excel
