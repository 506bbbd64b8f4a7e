#include "ExcelDropTest.h"

#include <vector>

namespace mergeloom {
namespace {

/// Keys: 1 F, 2 A, 3 Sub (not bound), 4 to 6 C to E, 7 B.
constexpr const char* kWideForm = R"(<db><Form Name="F" CurrentView="1">
  <Control Name="A"/>
  <Control Name="Sub" Caption="More" ControlType="Subform"><Form>
    <Control Name="C"/>
    <Control Name="Lines" ControlType="Subform"><Form HasRecordset="1">
      <Control Name="P"/></Form></Control>
    <Control Name="E"/></Form></Control>
  <Control Name="B"/>
</Form></db>)";

class ExcelFormDrop : public ExcelDropTest {
  protected:
    void SetUp() override { load(kWideForm); }
    bool dropControls(const FieldKeys& keys) { return drop(node("1k"), DocumentType::ByView, &keys); }
};

TEST_F(ExcelFormDrop, TheNextControlStartsBelowAllRowsOfTheFormer) {
    open();
    EXPECT_TRUE(drop(node("1k")));
    EXPECT_EQ(cells(),
              "A|[A]\n"
              "More|C|[SubC]\n"
              "|Lines|P\n"
              "||[LinesP]\n"
              "|E|[SubE]\n"
              "B|[B]\n");
    EXPECT_EQ(active(), "A7");
}

TEST_F(ExcelFormDrop, MergedCells) {
    struct Case {
        const char* area;
        std::string expectedCells, expectedNames;
    };
    const std::vector<Case> cases{
        {"A1:B1", "A||[A]\nB|[B]\n", "ammA=C1 ammB=B2 "},
        {"A1:A3", "A|[A]\n\n\nB|[B]\n", "ammA=B1 ammB=B4 "},
        {"B1:C2", "A|[A]\n\nB|[B]\n", "ammA=B1 ammB=B3 "},
        {"A2:B3", "A|[A]\nB||[B]\n", "ammA=B1 ammB=C2 "},
    };
    for (const Case& c : cases) {
        openMerged(c.area);
        goTo(1, 1);
        EXPECT_TRUE(dropControls({"2k", "8k"})) << c.area;
        EXPECT_EQ(cells(), c.expectedCells) << c.area;
        EXPECT_EQ(names(), c.expectedNames) << c.area;
    }
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(ExcelFormDrop, MergedCellsThatReachUpBesideAPlaceArePassed) {
    open(
        "<sheetData/><mergeCells count=\"2\"><mergeCell ref=\"B1:B3\"/><mergeCell ref=\"A3:A4\"/>"
        "</mergeCells>");
    goTo(1, 1);
    EXPECT_TRUE(dropControls({"2k", "8k"}));
    EXPECT_EQ(names(), "ammA=B1 ammB=B5 ");

    openMerged("A2:A3");
    goTo(1, 2);
    EXPECT_TRUE(dropControls({"2k", "8k"}));
    EXPECT_EQ(names(), "ammA=C1 ammB=C2 ");
}

TEST_F(ExcelFormDrop, TheEdgesOfTheSheet) {
    open();
    goTo(kLastRow, 1);
    EXPECT_TRUE(dropControls({"2k"})) << "nothing needs the row below the last one";
    EXPECT_EQ(cell(kLastRow, 2)->Value(), "[A]");
    EXPECT_TRUE(errors.reports.empty());

    for (const char* second : {"8k", "2k"}) {
        errors.reports.clear();
        open();
        goTo(kLastRow, 1);
        EXPECT_FALSE(dropControls({"2k", second}));
        EXPECT_EQ(cell(kLastRow, 1)->Value() + cell(kLastRow, 2)->Value() + names(), "");
        EXPECT_EQ(errors.reports.size(), 1U);
    }

    open();
    goTo(1, kLastColumn);
    EXPECT_FALSE(dropControls({"2k"})) << "no cell for the place";
    EXPECT_EQ(cell(1, kLastColumn)->Value() + names(), "");
    EXPECT_EQ(errors.reports.size(), 2U);
}

TEST_F(ExcelFormDrop, ATableWithoutRoomIsLeftOutWithItsCaption) {
    open("<sheetData/><mergeCells count=\"1\"><mergeCell ref=\"C4:D4\"/></mergeCells>");
    EXPECT_TRUE(drop(node("1k")));
    EXPECT_EQ(cells(), "A|[A]\nMore|C|[SubC]\n|E|[SubE]\nB|[B]\n");
    EXPECT_EQ(messages.texts(), "It is impossible to insert the table into current selection.\n");
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(ExcelFormDrop, ControlsThatNoPlaceCanBeNamedAfter) {
    load(
        R"(<db><Form Name="F" CurrentView="1"><Control Name="%"/><Control Name="Sub" ControlType="Subform"><Form>
        <Control Name="#"/></Form></Control><Control Name="Lines" ControlType="Subform"><Form HasRecordset="1">
        <Control Name="-"/><Control Name="P"/></Form></Control><Control Name="A"/></Form></db>)");
    open();
    EXPECT_TRUE(drop(node("1k")));
    EXPECT_EQ(cells(), "Lines|P\n|[LinesP]\nA|[A]\n");
    EXPECT_EQ(names(), "ammA=B3 ammLines=B1:B2 ammLinesP=B2 ");
    const std::string nothingLeft = " is left out: its name holds no letter, no digit and no underscore.\n";
    EXPECT_EQ(messages.texts(), "The control \"%\"" + nothingLeft + "The control \"#\"" + nothingLeft +
                                    "The subform \"Sub\" is left out: none of its controls can be dropped.\n"
                                    "The control \"-\"" +
                                    nothingLeft);
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(ExcelFormDrop, ACaptionDoesNotFillALargerSelection) {
    open();
    cell(2, 2)->Resize(3, 3)->Select();
    EXPECT_TRUE(dropControls({"2k", "8k"}));
    EXPECT_EQ(cells(2, 2), "A|[A]\nB|[B]\n");
}

TEST_F(ExcelFormDrop, ASheetWithoutCells) {
    struct Case {
        const char* key;
        DocumentType type;
        std::string expectedMessage;
    };
    const std::vector<Case> cases{
        {"1k", DocumentType::Form, "It is impossible to insert the form into current selection.\n"},
        {"1k", DocumentType::Table, "It is impossible to insert the table into current selection.\n"},
        {"3k", DocumentType::Form, "It is impossible to insert the form into current selection.\n"},
        {"5k", DocumentType::Form, "It is impossible to insert the table into current selection.\n"},
        {"2k", DocumentType::Form, ""},
    };
    for (const Case& c : cases) {
        openFile(workbookFile({{.name = "Sheet1"},
                               {.name = "Chart1",
                                .xml = "<sheetViews><sheetView workbookViewId=\"0\"/></sheetViews>",
                                .kind = "chartsheet"}},
                              "", "<bookViews><workbookView activeTab=\"1\"/></bookViews>"));
        messages.messages.clear();
        errors.reports.clear();
        EXPECT_FALSE(drop(node(c.key), c.type)) << c.key;
        EXPECT_EQ(messages.texts(), c.expectedMessage) << c.key;
        EXPECT_EQ(errors.reports.size(), c.expectedMessage.empty() ? 1U : 0U) << "a field has no refusal";
        EXPECT_EQ(cells() + names(), "");
    }
}

/// The rows of a form in a form are counted from its first row to its last one.
TEST_F(ExcelFormDrop, MergedCellsWithinASubform) {
    open(
        "<sheetData/><mergeCells count=\"2\"><mergeCell ref=\"C1:C3\"/><mergeCell ref=\"B3:B4\"/>"
        "</mergeCells>");
    EXPECT_TRUE(dropControls({"3k", "8k"}));
    EXPECT_EQ(names(), "ammB=B8 ammLines=C5:C6 ammLinesP=C6 ammSubC=C1 ammSubE=C7 ");
}

}  // namespace
}  // namespace mergeloom
