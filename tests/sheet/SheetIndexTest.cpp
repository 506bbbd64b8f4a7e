#include "office/embedded/sheet/SheetIndex.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace mergeloom::embedded {
namespace {

TEST(AreaIndex, FindsAreasInWhateverOrderTheyCome) {
    std::vector<excel::CellArea> areas;
    for (const char* area : {"C7:C7", "F3:G4", "C5:D5", "C1:D2", "A1:A9"})
        areas.push_back(excel::parseArea(area).value());
    const AreaIndex index(areas);
    const std::vector<std::pair<const char*, std::string>> cases{
        {"A1", "A1:A9"}, {"A9", "A1:A9"}, {"A10", ""}, {"D2", "C1:D2"}, {"D3", ""},
        {"C5", "C5:D5"}, {"G4", "F3:G4"}, {"E5", ""},  {"C7", "C7"},    {"B1", ""}};
    for (const auto& [cell, area] : cases) {
        const std::optional<excel::CellArea> found = index.find(excel::parseCell(cell).value());
        EXPECT_EQ(found ? addressOf(*found) : "", area) << cell;
    }
    EXPECT_FALSE(AreaIndex().find({1, 1}).has_value());
}

}  // namespace
}  // namespace mergeloom::embedded
