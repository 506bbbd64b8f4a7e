#include "DropTest.h"

#include <vector>

namespace mergeloom {
namespace {

/// Keys: 1 Orders, 2 Lines, 3 Price, 4 Sum; 5 Sheet, 6 A.
constexpr const char* kTableFields = R"(<db>
  <Form Name="Orders" CurrentView="1">
    <Control Name="Lines" ControlType="Subform"><Form HasRecordset="1">
      <Control Name="Price" Caption="Unit price"/><Control Name="Sum" Section="2"/></Form></Control>
  </Form>
  <Table Name="Sheet" CurrentView="2"><Control Name="A"/></Table>
</db>)";

const std::string kCell = "<w:tc><w:p/></w:tc>";

std::string row(const std::string& cells) {
    return "<w:tr>" + cells + "</w:tr>";
}
std::string table(const std::string& rows) {
    return "<w:tbl>" + rows + "</w:tbl><w:p/>";
}
std::string cell(const std::string& properties, const std::string& text = "") {
    return "<w:tc><w:tcPr>" + properties + "</w:tcPr><w:p><w:r><w:t>" + text + "</w:t></w:r></w:p></w:tc>";
}

class TableFieldDrop : public DropTest {
  protected:
    void SetUp() override { load(kTableFields); }
};

TEST_F(TableFieldDrop, MakesTheTableTheTableOfItsSource) {
    struct Case {
        std::string key, kind;
        int row;
        std::string expected;
    };
    const std::vector<Case> cases{
        {"3k", "Value", 2, "[Lines:\n|\n|\n|[LinesPrice:Price] \n|]\n"},
        {"3k", "Value", 1, "[Lines:\n|[LinesPrice:Price] \n|\n|\n|]\n"},
        {"3k", "Label and Value", 2, "[Lines:\n|Unit price\n|\n|[LinesPrice:Price] \n|]\n"},
        {"3k", "Label and Value", 1, "[Lines:\n|Unit price: [LinesPrice:Price]\n\n|\n|\n|]\n"},
        {"6k", "Value", 2, "[SheetT:\n|\n|\n|[A:A] \n|]\n"},
        {"4k", "Value", 2, "\n|\n|\n|[LinesSum:Sum] \n|\n"},
    };
    for (const Case& c : cases) {
        open(table(row(kCell + kCell) + row(kCell + kCell)));
        goToCell(1, c.row, 2);
        EXPECT_TRUE(drop(node(c.key, c.kind))) << c.key << c.kind;
        EXPECT_EQ(body(), c.expected) << c.key << c.kind << c.row;
    }
    EXPECT_EQ(messages.texts(), "");
}

TEST_F(TableFieldDrop, ACaptionDoesNotReplaceAnother) {
    open(table(row(cell("", "Cost")) + row(kCell)));
    goToCell(1, 2, 1);
    EXPECT_TRUE(drop(node("3k", "Label and Value")));
    EXPECT_EQ(body(), "[Lines:Cost\n|Unit price: [LinesPrice:Price]\n\n|]\n");
}

TEST_F(TableFieldDrop, BelongsIntoItsOwnTable) {
    open(table(row(kCell) + row(kCell)) + table(row(kCell) + row(kCell)));
    goToCell(1, 1, 1);
    ASSERT_TRUE(drop(node("3k", "Value")));
    const std::string before = body();
    goToCell(2, 1, 1);
    EXPECT_FALSE(drop(node("3k", "Value")));
    EXPECT_EQ(body(), before);
    EXPECT_EQ(messages.texts(),
              "The field may only be dropped on a table\u2019s merge area if it is a tablefield.\n");

    goToCell(1, 2, 1);
    EXPECT_TRUE(drop(node("3k", "Value")));
    EXPECT_EQ(body(), "[Lines:[LinesPrice:Price] \n|[LinesPrice_ref1:Price] \n|]\n\n|\n|\n");
}

TEST_F(TableFieldDrop, AFieldGoesIntoTheTableThatWasDropped) {
    open();
    ASSERT_TRUE(drop(node("2k")));
    EXPECT_FALSE(drop(node("3k", "Value"))) << "below the table";
    EXPECT_EQ(messages.texts(), "The tablefield may only be dropped on a table.\n");
    goToCell(1, 1, 1);
    EXPECT_TRUE(drop(node("3k", "Value")));
    EXPECT_EQ(body(), "\n[Lines:[LinesPrice_ref1:Price] Unit price\n|[LinesPrice:Price] \n|]\n");
}

TEST_F(TableFieldDrop, AFieldThatNoPlaceCanBeNamedAfterLeavesTheTable) {
    load("<db><Table Name='T' CurrentView='2'><Control Name='%' Caption='Share'/></Table></db>");
    open(table(row(kCell) + row(kCell)));
    goToCell(1, 2, 1);
    EXPECT_FALSE(drop(node("2k", "Label and Value")));
    EXPECT_EQ(body(), "\n|\n|\n");
    EXPECT_EQ(messages.messages.size(), 1U);
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(TableFieldDrop, NeedsAPlainTable) {
    const std::vector<std::string> bodies{
        table(row(kCell + kCell)),
        table(row(kCell + kCell) + row(kCell)),
        table(row(cell("<w:vMerge w:val='restart'/>")) + row(cell("<w:vMerge/>"))),
        table("<w:tblGrid><w:gridCol w:w='900'/><w:gridCol w:w='900'/><w:gridCol w:w='900'/></w:tblGrid>" +
              row(cell("<w:gridSpan w:val='2'/>") + kCell) + row(kCell + cell("<w:gridSpan w:val='2'/>"))),
    };
    for (const std::string& given : bodies) {
        open(given);
        errors.reports.clear();
        const std::string before = body();
        EXPECT_FALSE(drop(node("3k", "Value"))) << given;
        EXPECT_EQ(body(), before);
        ASSERT_EQ(errors.reports.size(), 1U) << given;
        EXPECT_EQ(errors.reports[0].description, "Incorrect Word Table.");
        EXPECT_EQ(errors.reports[0].number, kApplicationError);
    }
}

}  // namespace
}  // namespace mergeloom
