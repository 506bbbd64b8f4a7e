#include "contract/word/WordFixture.h"

namespace mergeloom {
namespace {

class OfficeTables : public WordOffice {};
INSTANTIATE_TEST_SUITE_P(Offices, OfficeTables, kOffices, nameOfOffice);

TEST_P(OfficeTables, AreAddedBeforeTheParagraph) {
    add();
    selection->TypeText("one\rtwo");
    const word::TablePtr table = document->Tables()->Add(*selection->Range(), 2, 3);
    EXPECT_EQ(body(), "one\ntwo\n\n|\n|\n|\n|\n|\n|\n");
    EXPECT_EQ(at(*table->Range()), "8-16");
    EXPECT_EQ(table->Rows()->Count(), 2);
    EXPECT_EQ(table->Columns()->Count(), 3);
    EXPECT_TRUE(table->Uniform());
    EXPECT_EQ(table->Range()->Cells()->Count(), 6);
    EXPECT_EQ(cell(1, 2, 3)->RowIndex(), 2);
    EXPECT_EQ(cell(1, 2, 3)->ColumnIndex(), 3);
    EXPECT_EQ(errorOf([&] { document->Tables()->Add(*selection->Range(), 2, 64); }), kCommandFailed);
    EXPECT_EQ(errorOf([&] { document->Tables()->Item(2); }), kMemberNotFound);
    EXPECT_EQ(errorOf([&] { table->Rows()->Item(3); }), kMemberNotFound);
    EXPECT_EQ(errorOf([&] { selection->Range()->Cells(); }), kMemberNotFound);
}

TEST_P(OfficeTables, FillCellByCell) {
    add();
    document->Tables()->Add(*selection->Range(), 2, 2);
    for (int row = 1; row <= 2; ++row) {
        for (int column = 1; column <= 2; ++column)
            cell(1, row, column)->Range()->SetText(std::to_string(row) + std::to_string(column) + "\rx");
    }
    cell(1, 2, 1)->Range()->SetText("new");
    EXPECT_EQ(body(), "11\nx\n|12\nx\n|new\n|22\nx\n|\n");
    EXPECT_EQ(document->Tables()->Item(1)->Range()->Text(), "11\rx\r\a12\rx\r\a\r\anew\r\a22\rx\r\a\r\a");
}

TEST_P(OfficeTables, GrowByRowsAndGo) {
    const std::string row = cellXml(para("a")) + cellXml(para("b"));
    open(para("x") + tableXml({row}) + "<w:p>" + marked(1, "Behind", run("y")) + "</w:p>");
    const word::TablePtr table = document->Tables()->Item(1);
    document->Bookmarks()->Add("Table", *table->Range());
    table->Rows()->Add()->Cells()->Item(2)->Range()->SetText("new");
    EXPECT_EQ(at("Table"), "2-13");
    EXPECT_EQ(at("Behind"), "13-14");
    EXPECT_EQ(body(), "x\n[Table:a\n|b\n|\n|new\n|][Behind:y]\n");
    const word::CellPtr gone = cell(1, 1, 1);
    table->Delete();
    EXPECT_EQ(body(), "x\n[Behind:y]\n");
    EXPECT_FALSE(document->Bookmarks()->Exists("Table"));
    EXPECT_EQ(errorOf([&] { table->Range(); }), kObjectDeleted);
    EXPECT_EQ(errorOf([&] { gone->Range(); }), kObjectDeleted);
}

TEST_P(OfficeTables, AreUniformWhereRowsAreAlike) {
    const std::string plain = cellXml(para("a"));
    const std::string wide = cellXml(para("w"), "<w:gridSpan w:val='2'/>");
    const std::string upper = cellXml(para("u"), "<w:vMerge w:val='restart'/>");
    const std::string lower = cellXml(para(""), "<w:vMerge/>");
    struct Case {
        std::string table;
        bool isUniform;
        int cells;
    };
    const std::vector<Case> cases{
        {tableXml({plain + plain, plain + plain}), true, 4},
        {tableXml({plain + plain, wide}), false, 3},
        {tableXml({wide + plain, plain + wide}, 3), false, 4},
        {tableXml({wide + plain, wide + plain, wide + plain}, 3), true, 6},
        {tableXml({upper + plain, lower + plain}), false, 4},
    };
    for (const Case& c : cases) {
        open(c.table + "<w:p>" + marked(1, "Behind", run("y")) + "</w:p>");
        EXPECT_EQ(document->Tables()->Item(1)->Uniform(), c.isUniform) << c.table;
        EXPECT_EQ(document->Tables()->Item(1)->Range()->Cells()->Count(), c.cells) << c.table;
        EXPECT_EQ(bookmark("Behind")->Range()->Text(), "y") << c.table;
        goTo("Behind");
        selection->TypeText("x");
        EXPECT_EQ(bookmark("Behind")->Range()->Text(), "xy") << c.table;
    }
}

/// Inserts bookmarks and text before, in, between and after tables.
TEST_P(OfficeTables, LieAroundTheCaret) {
    const auto marker = [](int id) {
        return "<w:p>" + run("t") + marked(id, "P" + std::to_string(id), run("m")) + run("u") + "</w:p>";
    };
    const std::string inner = tableXml({cellXml(marker(1)) + cellXml(para(""))});
    const std::string atStart = tableXml({cellXml(marker(2)) + cellXml(para("😀"))});
    const std::string nested = tableXml({cellXml(inner + marker(3)) + cellXml(para("y") + marker(4)),
                                         cellXml(marker(5)) + cellXml(para(""))});
    const std::string merged =
        tableXml({cellXml(para("a"), "<w:vMerge w:val='restart'/>") + cellXml(marker(6)),
                  cellXml(para(""), "<w:vMerge/>") + cellXml(marker(7))});
    const std::string given = para("") + atStart + marker(8) + nested + para("") + merged + marker(9) +
                              tableXml({cellXml(para("last"))}, 1) + marker(10);
    for (int id = 1; id <= 10; ++id) {
        open(given);
        const std::string name = "P" + std::to_string(id);
        EXPECT_EQ(bookmark(name)->Range()->Text(), "m") << name;
        goToEnd(name);
        selection->TypeText("xy");
        document->Bookmarks()->Add("New", *selection->Range()->Previous(word::WdUnits::wdCharacter, 1));
        selection->TypeText("\rz");
        goTo(name);
        selection->TypeText("s");
        const std::string expected = "t[" + name + ":sm]x[New:y]\nzu\n";
        const std::string found = body();
        EXPECT_NE(found.find(expected), std::string::npos) << name << " in " << found;
    }
}

TEST_P(OfficeTables, NestInCells) {
    open(tableXml({cellXml(para("")) + cellXml(para("b"))}) + para("y"));
    goToCell(1, 1, 1);
    const word::TablePtr inner = document->Tables()->Add(*selection->Range(), 1, 2);
    EXPECT_EQ(document->Tables()->Count(), 1);
    inner->Rows()->Item(1)->Cells()->Item(2)->Range()->SetText("in");
    EXPECT_EQ(at(*inner->Range()), "0-5");
    cell(1, 1, 2)->Range()->SetText("out");
    EXPECT_EQ(document->Tables()->Item(1)->Range()->Text(), "\r\ain\r\a\r\a\r\aout\r\a\r\a");
    EXPECT_EQ(body(), "\n|in\n|\n|out\n|y\n");
}

}  // namespace
}  // namespace mergeloom
