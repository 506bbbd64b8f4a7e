#include "office/libreoffice/word/StoryMap.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mergeloom::libreoffice {
namespace {

/// A story "ab", a table of two rows with cells of the lengths 1, 0, 2 and 0, then "cd": the table takes 3
/// to 12.
class StoryMapTest : public testing::Test {
  protected:
    StoryMapTest() {
        map.setLength({6});
        table->name = "Table1";
        table->start = {3};
        table->rows = {{{"A1", {1}}, {"B1", {0}}}, {{"A2", {2}}, {"B2", {0}}}};
        map.insertTable(table);
    }

    MarkPtr mark(std::int64_t start, std::int64_t end) {
        const auto made = std::make_shared<MarkRecord>();
        made->place = {{start}, {end}};
        made->inWriter = map.inWriter(made->place);
        map.addMark(made);
        return made;
    }

    StoryMap map;
    TablePtr table = std::make_shared<MappedTable>();
};

TEST_F(StoryMapTest, PlacesOfWriters) {
    struct Case {
        std::int64_t position;
        std::string cell;  ///< empty in the story's own text
        std::int64_t steps;
    };
    const std::vector<Case> cases{{0, "", 0},   {2, "", 2},   {3, "A1", 0},  {4, "A1", 1}, {5, "B1", 0},
                                  {7, "A2", 0}, {9, "A2", 2}, {10, "B2", 0}, {12, "", 3},  {14, "", 5}};
    for (const Case& c : cases) {
        const TextPlace place = map.placeOf({c.position});
        EXPECT_EQ(place.text.table ? place.text.table->at(place.text.cell).name : "", c.cell) << c.position;
        EXPECT_EQ(place.steps, c.steps) << c.position;
    }
    EXPECT_EQ(map.length().value, 15);
}

TEST_F(StoryMapTest, TextMovesWhatStandsBehindIt) {
    const MarkPtr whole = mark(3, 12);
    const MarkPtr behind = mark(12, 14);
    const auto live = std::make_shared<LiveStretch>(LiveStretch{nullptr, {4}, {13}});
    map.watch(live);
    map.insertText({10}, {5});
    EXPECT_EQ(table->rows[1][1].length.value, 5);
    EXPECT_EQ(whole->place, (Stretch{{3}, {17}}));
    EXPECT_EQ(behind->place, (Stretch{{17}, {19}}));
    EXPECT_EQ(live->end.value, 18);
    EXPECT_EQ(live->start.value, 4);
    // Writer ends a bookmark over the table with the last cell's text, and does not let it grow there.
    EXPECT_NE(whole->inWriter, map.inWriter(whole->place));

    map.removeText({{0}, {2}});
    EXPECT_EQ(table->start.value, 1);
    EXPECT_EQ(behind->place, (Stretch{{15}, {17}}));
}

TEST_F(StoryMapTest, TextAtABookmarksEndsFollowsWord) {
    const MarkPtr bookmark = mark(0, 2);
    map.insertText({2}, {1});
    EXPECT_EQ(bookmark->place, (Stretch{{0}, {2}}));
    EXPECT_EQ(bookmark->inWriter, bookmark->place);
    map.insertText({0}, {1});
    EXPECT_EQ(bookmark->place, (Stretch{{0}, {3}}));
    EXPECT_EQ(bookmark->inWriter, (Stretch{{1}, {3}})) << "Writer leaves the text before it";
}

TEST_F(StoryMapTest, RowsAndTablesComeAndGo) {
    const MarkPtr whole = mark(3, 12);
    map.appendRow(*table, {{"A3", {0}}, {"B3", {0}}});
    EXPECT_EQ(whole->place, (Stretch{{3}, {15}}));
    EXPECT_EQ(map.length().value, 18);

    const auto second = std::make_shared<MappedTable>();
    second->name = "Table2";
    second->start = {16};
    second->rows = {{{"A1", {0}}}};
    map.insertTable(second);
    EXPECT_EQ(map.tableAt({16}), second);
    EXPECT_EQ(map.placeOf({18}).steps, 4);

    map.removeTable(table);
    EXPECT_FALSE(table->placed);
    EXPECT_EQ(second->start.value, 4);
    EXPECT_EQ(map.length().value, 8);
}

TEST_F(StoryMapTest, ATableInACellCountsForTheCell) {
    const auto inner = std::make_shared<MappedTable>();
    inner->name = "Inner";
    inner->start = {5};
    inner->rows = {{{"A1", {0}}}};
    map.insertTable(inner);
    EXPECT_EQ(table->rows[0][1].length.value, 2);
    EXPECT_EQ(map.tableAt({5}), inner);
    EXPECT_EQ(map.placeOf({7}).text, (TextKey{table, {0, 1}}));
    EXPECT_EQ(map.placeOf({7}).steps, 0);
    EXPECT_EQ(map.tableAround({{4}, {6}}), table);
}

TEST_F(StoryMapTest, WhichBookmarksARangeCountsAmongItsOwn) {
    const MarkPtr place = mark(0, 2);
    const MarkPtr empty = mark(1, 1);
    struct Case {
        std::int64_t start, end;
        std::vector<MarkPtr> expected;
    };
    const std::vector<Case> cases{
        {2, 2, {place}}, {0, 1, {place}}, {0, 2, {place, empty}}, {1, 1, {place, empty}}, {2, 3, {}}};
    for (const Case& c : cases)
        EXPECT_EQ(map.marksIn({{c.start}, {c.end}}), c.expected) << c.start << "-" << c.end;
    EXPECT_EQ(map.marksCoveredBy({{0}, {1}}), std::vector<MarkPtr>{});
    EXPECT_EQ(map.marksCoveredBy({{0}, {3}}), (std::vector<MarkPtr>{place, empty}));
}

TEST_F(StoryMapTest, WhatWasKnownComesBack) {
    const MarkPtr bookmark = mark(12, 14);
    const auto before = map.state();
    map.removeTable(table);
    map.removeMark(bookmark);
    map.restore(*before);
    EXPECT_TRUE(table->placed);
    EXPECT_EQ(bookmark->place, (Stretch{{12}, {14}}));
    EXPECT_EQ(map.tables(), std::vector<TablePtr>{table});
    EXPECT_EQ(map.length().value, 15);
}

}  // namespace
}  // namespace mergeloom::libreoffice
