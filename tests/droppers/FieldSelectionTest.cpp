#include "droppers/FieldSelection.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

/// Returns a letter for each item, in upper case if it is selected and in brackets if it is the current one.
std::string shownList(const FieldSelection& list) {
    std::string shown;
    for (int index = 0; index < list.ListCount(); ++index) {
        const FieldSelection::Item& item = list.items()[static_cast<std::size_t>(index)];
        EXPECT_EQ(item.itemData, item.text.front()) << "what belongs to an item moves with it";
        std::string letter = item.selected ? item.text : std::string(1, static_cast<char>(item.text[0] + 32));
        shown += index == list.ListIndex() ? "(" + letter + ")" : letter;
    }
    return shown;
}

class FieldSelectionTest : public testing::Test {
  protected:
    FieldSelectionTest() {
        for (const char* text : {"A", "B", "C", "D"})
            list.AddItem(text, text[0]);
    }
    FieldSelection list;
};

TEST_F(FieldSelectionTest, TheRulesOfItsButtons) {
    EXPECT_EQ(shownList(list), "(A)BCD") << "every field starts selected";
    list.MoveListItem(true);
    EXPECT_EQ(shownList(list), "(A)BCD") << "up at the top";
    list.MoveListItem(false);
    EXPECT_EQ(shownList(list), "B(A)CD");
    list.SetSelected(1, false);
    list.MoveListItem(false);
    EXPECT_EQ(shownList(list), "BC(a)D") << "the state moves along";
    list.SetListIndex(3);
    list.MoveListItem(false);
    EXPECT_EQ(shownList(list), "BCa(D)") << "down at the bottom";
    list.MoveListItem(true);
    EXPECT_EQ(shownList(list), "BC(D)a");
    list.SelectAll(false);
    EXPECT_EQ(shownList(list), "bc(d)a");
    EXPECT_EQ(list.SelCount(), 0);
    list.MoveListItem(true);
    EXPECT_EQ(shownList(list), "bc(d)a") << "nothing moves while nothing is selected";
    list.SelectAll(true);
    EXPECT_EQ(shownList(list), "BC(D)A");
    for (const int outside : {-1, 4}) {
        list.SetListIndex(outside);
        list.SetSelected(outside, false);
    }
    EXPECT_EQ(shownList(list), "BC(D)A");
}

TEST(FieldSelection, AnEmptyListTakesEveryClick) {
    FieldSelection list;
    list.MoveListItem(true);
    list.MoveListItem(false);
    list.SelectAll(true);
    EXPECT_EQ(list.ListIndex(), -1);
}

}  // namespace
}  // namespace mergeloom
