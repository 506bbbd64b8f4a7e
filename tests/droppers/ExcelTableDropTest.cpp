#include "ExcelDropTest.h"

#include <vector>

namespace mergeloom {
namespace {

/// Keys: 1 Sheet, 2 to 4 A to C, 5 Foot; 6 Empty; 7 Letter, 8 Town, 9 Lines, 10 Unit Price, 11 2nd, 12 Sum;
/// 13 ?!, 14 X.
constexpr const char* kTables = R"(<db>
  <Table Name="Sheet" CurrentView="2">
    <Control Name="A" Caption="&amp;First:"/><Control Name="B" Caption="Second"/><Control Name="C"/>
    <Control Name="Foot" Section="2"/>
  </Table>
  <Table Name="Empty" CurrentView="2"/>
  <Form Name="Letter" CurrentView="1">
    <Control Name="Town"/>
    <Control Name="Lines" Caption="Items" ControlType="Subform"><Form HasRecordset="1">
      <Control Name="Unit Price"/><Control Name="2nd"/><Control Name="Sum" Section="2"/></Form></Control>
    <Control Name="?!" ControlType="Subform"><Form HasRecordset="1"><Control Name="X"/></Form></Control>
  </Form>
</db>)";

const std::string kNoRoom = "It is impossible to insert the table into current selection.\n";

class ExcelTableDrop : public ExcelDropTest {
  protected:
    void SetUp() override { load(kTables); }
    bool dropSheet(const FieldKeys& keys) { return drop(node("1k"), DocumentType::ByView, &keys); }
};

TEST_F(ExcelTableDrop, ColumnsFollowTheTreeOrTheKeys) {
    struct Case {
        std::string key;
        FieldKeys keys;
        std::string expectedCells, expectedNames;
    };
    const std::vector<Case> cases{
        {"1k", {"3K", "2k"}, "Second|First:\n[B]|[A]\n", "ammA=C3 ammB=B3 ammSheetT=B2:C3 "},
        {"1k", {"99k", "8k", "5k", ""}, "Foot\n[Foot]\n", "ammFoot=B3 ammSheetT=B2:B3 "},
        {"1k", {"4k", "4k"}, "C|C\n[C]|[C]\n", "ammC=B3 ammC_ref1=C3 ammSheetT=B2:C3 "},
        {"9k",
         {"10k", "11k"},
         "Unit Price|2nd\n[LinesUnitPrice]|[Linesx2nd]\n",
         "ammLines=B2:C3 ammLinesUnitPrice=B3 ammLinesx2nd=C3 "},
        {"13k", {"14k"}, "X\n[?!X]\n", "ammX=B3 "},
        {"1k", {"8k"}, "", ""},
        {"1k", {}, "", ""},
    };
    for (const Case& c : cases) {
        open();
        goTo(2, 2);
        EXPECT_EQ(drop(node(c.key), DocumentType::ByView, &c.keys), !c.expectedCells.empty());
        EXPECT_EQ(cells(2, 2), c.expectedCells) << testing::PrintToString(c.keys);
        EXPECT_EQ(names(), c.expectedNames) << testing::PrintToString(c.keys);
    }
    open();
    EXPECT_TRUE(drop(node("1k")));
    EXPECT_EQ(cells(), "First:|Second|C\n[A]|[B]|[C]\n");
    EXPECT_EQ(active(), "A3") << "the cell below the table";
    EXPECT_FALSE(drop(node("6k")));
    EXPECT_EQ(messages.texts(), "");
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(ExcelTableDrop, WhatTheCellsHeldIsOverwrittenAndTheNameMoves) {
    open();
    cell(2, 1)->SetValue("old");
    ASSERT_TRUE(dropSheet({"2k"}));
    goTo(5, 2);
    EXPECT_TRUE(dropSheet({"3k"}));
    EXPECT_EQ(cells(), "First:\n[A]\n\n\n|Second\n|[B]\n");
    EXPECT_EQ(names(), "ammA=A2 ammB=B6 ammSheetT=B5:B6 ");
}

TEST_F(ExcelTableDrop, TheNextTableStandsBelow) {
    open();
    EXPECT_TRUE(drop(node("9k")));
    EXPECT_TRUE(dropSheet({"2k"}));
    EXPECT_EQ(cells(), "Unit Price|2nd\n[LinesUnitPrice]|[Linesx2nd]\nFirst:\n[A]\n");
    EXPECT_EQ(names(), "ammA=A4 ammLines=A1:B2 ammLinesUnitPrice=A2 ammLinesx2nd=B2 ammSheetT=A3:A4 ");
}

TEST_F(ExcelTableDrop, OneDropKeepsAllItsTables) {
    const std::string lines =
        "<Control Name='Lines' ControlType='Subform'><Form HasRecordset='1'>"
        "<Control Name='P'/></Form></Control>";
    load("<db><Form Name='F' CurrentView='1'>" + lines + lines +
         "<Control Name='Lines'/></Form><Form Name='G' "
         "CurrentView='1'><Control Name='Lines'/>" +
         lines + lines + "</Form></db>");
    struct Case {
        const char* key;
        std::string expectedNames, expectedMessages;
    };
    const std::string told = "This drop has made the table \"ammLines\" already; the further one is named \"";
    const std::vector<Case> cases{
        {"1k", "ammLines=B1:B2 ammLinesP=B2 ammLinesP_ref1=B4 ammLines_ref1=B3:B4 ammLines_ref2=B5 ",
         told + "ammLines_ref1\".\n"},
        {"7k", "ammLines=B1 ammLinesP=B3 ammLinesP_ref1=B5 ammLines_ref1=B2:B3 ammLines_ref2=B4:B5 ",
         told + "ammLines_ref2\".\n"},
    };
    for (const Case& c : cases) {
        open();
        messages.messages.clear();
        EXPECT_TRUE(drop(node(c.key)));
        EXPECT_EQ(names(), c.expectedNames);
        EXPECT_EQ(messages.texts(), c.expectedMessages);
    }

    load("<db><Form Name='F' CurrentView='1'><Control Name='Lines_ref1'/>" + lines + lines + "</Form></db>");
    open();
    messages.messages.clear();
    EXPECT_TRUE(drop(node("1k")));
    EXPECT_EQ(names(),
              "ammLines=B2:B3 ammLinesP=B3 ammLinesP_ref1=B5 ammLines_ref1=B1 ammLines_ref1_ref1=B4:B5 ");
    EXPECT_EQ(messages.texts(), told + "ammLines_ref1_ref1\".\n");
}

TEST_F(ExcelTableDrop, LinkedFieldsStandUnderTheFieldTheyServe) {
    load(R"xml(<db><Query Name="Q" CurrentView="2">
        <Control Name="Total" ControlSource="=Sum([price]*[Qty])/[Total]"/>
        <Control Name="Price" ControlSource="Price"/>
        <Control Name="Qty"/></Query></db>)xml");
    struct Case {
        FieldKeys keys;
        std::string expectedCells, expectedNames;
    };
    const std::vector<Case> cases{
        {{"2k"}, "Total\n[Total]\n[Price]\n[Qty]\n", "ammPrice=A3 ammQT=A1:A4 ammQty=A4 ammTotal=A2 "},
        {{"3k", "2k"},
         "Price|Total\n[Price]|[Total]\n|[Qty]\n",
         "ammPrice=A2 ammQT=A1:B3 ammQty=B3 ammTotal=B2 "},
        {{"3k", "4k"}, "Price|Qty\n[Price]|[Qty]\n", "ammPrice=A2 ammQT=A1:B2 ammQty=B2 "},
    };
    for (const Case& c : cases) {
        open();
        EXPECT_TRUE(drop(node("1k"), DocumentType::ByView, &c.keys));
        EXPECT_EQ(cells(), c.expectedCells) << testing::PrintToString(c.keys);
        EXPECT_EQ(names(), c.expectedNames) << testing::PrintToString(c.keys);
    }
    open();
    goTo(kLastRow - 2, 1);
    const FieldKeys total{"2k"};
    EXPECT_FALSE(drop(node("1k"), DocumentType::ByView, &total)) << "four rows do not fit";
    EXPECT_EQ(messages.texts(), kNoRoom);
    EXPECT_EQ(cells(kLastRow - 9) + names(), "");
}

TEST_F(ExcelTableDrop, NeedsRoom) {
    struct Case {
        int row, column;
        bool expected;
    };
    const std::vector<Case> cases{{kLastRow - 1, 1, true},
                                  {kLastRow, 1, false},
                                  {1, kLastColumn - 2, true},
                                  {1, kLastColumn - 1, false},
                                  {8, 8, true},
                                  {7, 6, false},
                                  {9, 6, false},
                                  {10, 6, true},
                                  {7, 8, false}};
    for (const Case& c : cases) {
        openMerged("H8:H9");
        if (c.row == 8) openMerged("J1:K2");
        goTo(c.row, c.column);
        workbook->SetSaved(true);
        messages.messages.clear();
        EXPECT_EQ(drop(node("1k")), c.expected) << c.row << " " << c.column;
        EXPECT_EQ(messages.texts(), c.expected ? "" : kNoRoom) << c.row << " " << c.column;
        EXPECT_EQ(names().empty(), !c.expected);
        EXPECT_EQ(workbook->Saved(), !c.expected);
    }
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(ExcelTableDrop, TableFieldsBelongIntoIt) {
    open();
    ASSERT_TRUE(drop(node("9k")));
    goTo(5, 5);
    EXPECT_FALSE(drop(node("10k", "Value")));
    EXPECT_EQ(messages.messages.size(), 1U);
    goTo(2, 2);
    EXPECT_TRUE(drop(node("10k", "Value")));
    EXPECT_EQ(cells(), "Unit Price|2nd\n[LinesUnitPrice]|[LinesUnitPrice]\n");
    EXPECT_EQ(messages.messages.size(), 1U);
}

TEST_F(ExcelTableDrop, ColumnsBecomeAsWideAsTheirTexts) {
    open();
    const double narrow = cell(1, 2)->ColumnWidth().value;
    ASSERT_TRUE(drop(node("9k")));
    EXPECT_GT(cell(1, 1)->ColumnWidth().value, narrow);
    EXPECT_EQ(cell(1, 3)->ColumnWidth().value, narrow);
}

TEST_F(ExcelTableDrop, AColumnStaysAsWideAsItsPicture) {
    load(
        R"(<db><Table Name="T" CurrentView="2"><Control Name="P" Image="p.gif"/><Control Name="Long caption"/>
        </Table><Table Name="U" CurrentView="2"><Control Name="A"/><Control Name="B"/></Table></db>)");
    pictures["p.gif"] = "/p.gif";
    files.files["/p.gif"] = pictureFile(400, 20);
    open();
    for (const char* key : {"1k", "4k"}) {
        ASSERT_TRUE(drop(node(key)));
        const excel::ShapePtr picture = sheet()->Shapes()->Item("ammP");
        EXPECT_NEAR(picture->Width().value, cell(2, 1)->Width().value, 0.05) << key;
        EXPECT_GT(picture->Width().value, 250) << key;
    }
    EXPECT_LT(cell(1, 2)->Width().value, 100);
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(ExcelTableDrop, ASubformIsNoColumn) {
    open();
    const FieldKeys keys{"8k", "9k"};
    EXPECT_FALSE(drop(node("7k"), DocumentType::Table, &keys));
    EXPECT_EQ(cells() + names(), "");
    EXPECT_EQ(messages.texts(), "The subform \"Items\" cannot be a column of a table.\n");
}

}  // namespace
}  // namespace mergeloom
