#include "office/embedded/sheet/MergedCells.h"
#include "sheet/SheetXml.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace mergeloom::embedded {
namespace {

MergedCells mergedIn(const std::vector<std::string>& areas) {
    std::string xml = "<sheetData/><mergeCells>";
    for (const std::string& area : areas)
        xml += "<mergeCell ref=\"" + area + "\"/>";
    const LoggedSheet sheet(worksheet(areas.empty() ? "<sheetData/>" : xml + "</mergeCells>"));
    return MergedCells(sheet.part);
}

TEST(MergedCells, AreFoundByEachOfTheirCells) {
    const MergedCells merged = mergedIn({"B2:C3", "A5:A1000", "D5:XFD5", "2:B"});
    const struct {
        const char* cell;
        std::string area;
    } cases[] = {
        {"B2", "B2:C3"},  {"C3", "B2:C3"},      {"A2", "A2"},          {"D3", "D3"},
        {"B4", "B4"},     {"A700", "A5:A1000"}, {"A1000", "A5:A1000"}, {"A1001", "A1001"},
        {"B700", "B700"}, {"ZZ5", "D5:XFD5"},   {"C5", "C5"},          {"ZZ6", "ZZ6"},
    };
    for (const auto& [cell, area] : cases)
        EXPECT_EQ(addressOf(merged.areaAt(at(cell))), area) << cell;
    EXPECT_TRUE(merged.isCovered(at("C2")));
    EXPECT_FALSE(merged.isCovered(at("B2")));
    EXPECT_FALSE(merged.isCovered(at("A1")));
    EXPECT_FALSE(mergedIn({}).isCovered(at("A1")));
}

TEST(MergedCells, OfTwoThatOverlapTheFirstCounts) {
    const MergedCells merged = mergedIn({"B2:D4", "C3:C9", "A4:Z4", "B2:D4", "E2:E9"});
    EXPECT_EQ(addressOf(merged.areaAt(at("C3"))), "B2:D4");
    EXPECT_EQ(addressOf(merged.areaAt(at("C9"))), "C9");
    EXPECT_EQ(addressOf(merged.areaAt(at("Z4"))), "Z4");
    EXPECT_EQ(addressOf(merged.areaAt(at("E9"))), "E2:E9");
}

/// Returns areas of all shapes in the cells of a grid, so that they do not overlap.
std::vector<std::string> randomAreas(std::mt19937& random) {
    std::vector<std::string> areas;
    for (int row = 1; row < 400; row += 20) {
        for (int column = 1; column < 200; column += 20) {
            const auto upTo = [&](int most) {
                return static_cast<int>(random() % static_cast<unsigned>(most));
            };
            const excel::CellPosition first{row + upTo(10), column + upTo(10)};
            areas.push_back(
                addressOf(excel::CellArea{first, {first.row + upTo(10), first.column + 1 + upTo(9)}}));
        }
    }
    std::shuffle(areas.begin(), areas.end(), random);
    return areas;
}

TEST(MergedCells, AnswerAsAWalkOverAllOfThemWould) {
    std::mt19937 random(26);  // NOLINT: the same areas each time
    const std::vector<std::string> areas = randomAreas(random);
    const MergedCells merged = mergedIn(areas);
    const auto holding = [&](const excel::CellArea& sought) {
        return std::ranges::find_if(areas, [&](const std::string& area) {
            return intersection(*excel::parseArea(area), sought).has_value();
        });
    };
    for (int i = 0; i < 1500; ++i) {
        const excel::CellPosition cell{1 + static_cast<int>(random() % 420),
                                       1 + static_cast<int>(random() % 220)};
        const auto found = holding({cell, cell});
        EXPECT_EQ(merged.areaAt(cell),
                  found == areas.end() ? excel::CellArea({cell, cell}) : *excel::parseArea(*found));
        const excel::CellArea around{cell, {cell.row + i % 7, cell.column + i % 5}};
        EXPECT_EQ(merged.touches(around), holding(around) != areas.end()) << addressOf(around);
    }
}

TEST(MergedCells, LargeAreasAreTouchedToo) {
    const MergedCells merged = mergedIn({"B2:C3", "F1:F9", "H7:K7"});
    const struct {
        const char* area;
        bool touched;
    } cases[] = {
        {"A:A", false},   {"A:B", true}, {"F:F", true},     {"G:G", false},
        {"10:90", false}, {"7:7", true}, {"A1:XFD1", true}, {"A4:E9", false},
    };
    for (const auto& [area, touched] : cases)
        EXPECT_EQ(merged.touches(*excel::parseArea(area)), touched) << area;
}

TEST(MergedCells, TensOfThousandsUnderATallOneAreFoundAtOnce) {
    constexpr int kMany = 30'000;
    std::vector<std::string> areas{"A1:A1048576"};
    for (int row = 1; row <= kMany; ++row)
        areas.push_back("C" + std::to_string(row) + ":D" + std::to_string(row));
    const MergedCells merged = mergedIn(areas);
    int covered = 0;
    for (int row = 1; row <= kMany; ++row)
        covered += (merged.isCovered({row, 4}) ? 1 : 0) + (merged.isCovered({row, 5}) ? 1 : 0);
    EXPECT_EQ(covered, kMany);
}

}  // namespace
}  // namespace mergeloom::embedded
