#include "base/AutomationError.h"
#include "xml/modNamedItems.h"

#include <gtest/gtest.h>

#include <limits>

namespace mergeloom {
namespace {

TEST(NamedItems, IndexByName) {
    struct {
        std::int32_t list;
        const char* name;
        std::int32_t index;
    } const cases[] = {
        {0, "Table", 0},
        {0, "control", 7},
        {0, "CONTROLS", 6},
        {0, "Plaintext", 16},
        {0, "Contro", -2},
        {0, "", 0},
        {0, "Form;Structure", 0},
        {1, "", 0},
        {1, "Name;Caption", 0},
        {1, "Label", -2},
        {1, "textFormat", 11},
        {2, "attachment", 4},
        {2, "ATTACHMENT", 4},
        {2, "BoundObjectFrame", 4},
        {2, "CustomControl", 10},
        {3, "label and value", 8},
        {3, "Label and Image", 12},
        {3, "label  and value", -2},
        {4, "Datasheet", 2},
        {5, "Datasheet", 2},
        {5, "Preview", -2},
        {5, "SPLITFORM", 5},
        {9, "Table", -2},
        {-1, "Table", -2},
        {9, "", 0},
        {9, "a;b", 0},
        {0, "\xC3\x89", -2},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(NamedItemIndex(c.list, c.name), c.index) << "list " << c.list << ", name " << c.name;
    }
}

// The items at -1 and one past the last item are empty, and there are no others beyond them.
TEST(NamedItems, ItemByIndex) {
    struct {
        std::string (*name)(std::int32_t);
        std::int32_t last;
        const char* lastItem;
    } const lists[] = {
        {StructureElementName, 16, "PlainText"},
        {AttributeName, 11, "TextFormat"},
        {ControlTypeName, 11, "Attachment"},
        {DropKindName, 12, "Label and Image"},
        {ViewName, 7, "Layout"},
    };
    for (const auto& list : lists) {
        EXPECT_EQ(list.name(-1), "");
        EXPECT_EQ(list.name(list.last), list.lastItem);
        EXPECT_EQ(list.name(list.last + 1), "");
        for (const std::int32_t index : {-2, list.last + 2, std::numeric_limits<std::int32_t>::max()}) {
            try {
                list.name(index);
                ADD_FAILURE() << "index " << index << " of the list that ends in " << list.lastItem;
            } catch (const AutomationError& error) {
                EXPECT_EQ(error.number(), 9U);
                EXPECT_EQ(error.description(), "Subscript out of range");
            }
        }
    }
    EXPECT_EQ(DropKindName(9), "Optional Space");
}

TEST(NamedItems, EnumeratorsStandForTheirWords) {
    EXPECT_EQ(StructureElementName(StructureElement::BoundValue), "BoundValue");
    EXPECT_EQ(AttributeName(Attribute::Image), "Image");
    EXPECT_EQ(ControlTypeName(ControlType::TabControl), "TabControl");
    EXPECT_EQ(DropKindName(DropKind::OptionalCarriageReturn), "Optional Carriage Return");
    EXPECT_EQ(ViewName(static_cast<std::int32_t>(View::Layout)), "Layout");
    EXPECT_EQ(NamedItemIndex(NamedItemList::DefaultViews, "ContinuousForm"),
              static_cast<std::int32_t>(DefaultView::ContinuousForm));
}

TEST(NamedItems, ZeroWidthJoinerIsOneCharacter) {
    EXPECT_EQ(ZeroWidthJoiner(), "\xE2\x80\x8D");
}

}  // namespace
}  // namespace mergeloom
