#include "office/embedded/sheet/SheetView.h"
#include "sheet/SheetXml.h"

#include <gtest/gtest.h>

#include <tuple>

namespace mergeloom::embedded {
namespace {

excel::CellSelection selected(const char* active, const char* areas) {
    return {at(active), excel::parseAreas(areas)};
}

/// Returns a sheet with one view that contains the XML.
std::string viewed(const std::string& children) {
    return worksheet("<sheetViews><sheetView workbookViewId=\"0\">" + children +
                     "</sheetView></sheetViews><sheetData/>");
}

TEST(SheetView, ReadsTheSelectionOfThePaneWithTheFocus) {
    const std::string twoPanes =
        "<selection pane=\"topRight\" activeCell=\"B1\" sqref=\"B1\"/>"
        "<selection pane=\"bottomLeft\" activeCell=\"A9\" sqref=\"A9\"/>";
    const struct {
        std::string xml;
        excel::CellSelection selection;
    } cases[] = {
        {worksheet("<sheetData/>"), selected("A1", "A1")},
        {viewed(""), selected("A1", "A1")},
        {viewed("<selection activeCell=\"C3\" sqref=\"C3\"/>"), selected("C3", "C3")},
        {viewed("<selection activeCell=\"C3\" activeCellId=\"1\" sqref=\"A1:B2 C3:D4\"/>"),
         selected("C3", "A1:B2 C3:D4")},
        {viewed("<selection activeCell=\"C3\"/>"), selected("C3", "C3")},
        {viewed("<selection sqref=\"B2:C3\"/>"), selected("B2", "B2:C3")},
        {viewed("<selection activeCell=\"Q9\" sqref=\"B2:C3\"/>"), selected("Q9", "Q9")},
        {viewed("<selection activeCell=\"junk\" sqref=\"junk\"/>"), selected("A1", "A1")},
        {viewed("<pane activePane=\"bottomLeft\"/>" + twoPanes), selected("A9", "A9")},
        {viewed("<pane/>" + twoPanes), selected("A1", "A1")},
        {viewed("<pane/><selection activeCell=\"B5\" sqref=\"B5\"/>" + twoPanes), selected("B5", "B5")},
        {worksheet("<sheetViews><sheetView workbookViewId=\"1\"><selection activeCell=\"B1\" sqref=\"B1\"/>"
                   "</sheetView><sheetView workbookViewId=\"0\"><selection activeCell=\"B2\" sqref=\"B2\"/>"
                   "</sheetView></sheetViews><sheetData/>"),
         selected("B2", "B2")},
        {worksheet("<sheetViews><sheetView workbookViewId=\"3\"><selection activeCell=\"B1\" sqref=\"B1\"/>"
                   "</sheetView></sheetViews><sheetData/>"),
         selected("B1", "B1")},
    };
    for (const auto& [xml, selection] : cases)
        EXPECT_EQ(readSelection(LoggedSheet(xml).part), selection) << xml;
}

TEST(SheetView, WritesTheSelectionAndNothingElse) {
    const std::string others = "<selection pane=\"topRight\" x=\"1\"/>";
    const struct {
        std::string before;
        excel::CellSelection selection;
        std::string after;
    } cases[] = {
        {"<selection activeCell=\"A1\" sqref=\"A1\" x=\"1\"/>", selected("C3", "B2:C3"),
         "<selection activeCell=\"C3\" sqref=\"B2:C3\" x=\"1\"/>"},
        {"", selected("C3", "C3"), "<selection activeCell=\"C3\" sqref=\"C3\"/>"},
        {"<!-- a --><pivotSelection/>", selected("C3", "A1 C3"),
         "<selection activeCell=\"C3\" activeCellId=\"1\" sqref=\"A1 C3\"/><!-- a --><pivotSelection/>"},
        {"<selection activeCell=\"C3\" activeCellId=\"1\" sqref=\"A1 C3\"/>", selected("A1", "A1"),
         "<selection activeCell=\"A1\" activeCellId=\"0\" sqref=\"A1\"/>"},
        {"<pane activePane=\"bottomLeft\"/>" + others + "<pivotSelection/>", selected("A9", "A:B"),
         "<pane activePane=\"bottomLeft\"/>" + others +
             "<selection pane=\"bottomLeft\" activeCell=\"A9\" sqref=\"A1:B1048576\"/><pivotSelection/>"},
    };
    for (const auto& [before, selection, after] : cases) {
        LoggedSheet sheet(viewed(before));
        sheet.undo.start();
        writeSelection(sheet.part, selection);
        EXPECT_EQ(sheet.part.toXml(), viewed(after));
        EXPECT_EQ(readSelection(sheet.part), selection);
        sheet.undo.undo();
        EXPECT_EQ(sheet.part.toXml(), viewed(before));
    }
}

TEST(SheetView, SheetWithoutAViewGetsOneWhenItIsNeeded) {
    LoggedSheet sheet("<x:worksheet xmlns:x=\"" + std::string(kMainNamespace) +
                      "\"><x:dimension ref=\"A1\"/><x:sheetData/></x:worksheet>");
    writeSelection(sheet.part, selected("A1", "A1"));
    setTabSelected(sheet.part, false);
    EXPECT_FALSE(sheet.part.isDirty());
    writeSelection(sheet.part, selected("B2", "B2"));
    EXPECT_NE(sheet.part.toXml().find(
                  "<x:dimension ref=\"A1\"/><x:sheetViews><x:sheetView workbookViewId=\"0\">"
                  "<x:selection activeCell=\"B2\" sqref=\"B2\"/></x:sheetView></x:sheetViews><x:sheetData/>"),
              std::string::npos)
        << sheet.part.toXml();
}

TEST(SheetView, TabIsSelectedInTheFirstWindow) {
    LoggedSheet sheet(viewed(""));
    EXPECT_FALSE(isTabSelected(sheet.part));
    setTabSelected(sheet.part, true);
    EXPECT_TRUE(isTabSelected(sheet.part));
    EXPECT_NE(sheet.part.toXml().find("<sheetView workbookViewId=\"0\" tabSelected=\"1\"/>"),
              std::string::npos);
    setTabSelected(sheet.part, false);
    EXPECT_FALSE(isTabSelected(sheet.part));
}

TEST(SheetProtection, ForbidsWhatTheSchemaSays) {
    const struct {
        std::string attributes;
        bool contents, objects, formatColumns, formatRows;
    } cases[] = {
        {"", false, false, false, false},
        {" sheet=\"1\"", true, false, true, true},
        {" sheet=\"1\" objects=\"1\" formatColumns=\"0\"", true, true, false, true},
        {" sheet=\"true\" formatRows=\"0\"", true, false, true, false},
        {" sheet=\"0\" formatRows=\"1\"", false, false, false, false},
        {" objects=\"1\"", false, true, false, false},
    };
    for (const auto& [attributes, contents, objects, formatColumns, formatRows] : cases) {
        const LoggedSheet sheet(worksheet("<sheetData/><sheetProtection" + attributes + "/>"));
        const SheetProtection read = readProtection(sheet.part);
        EXPECT_EQ(std::tie(read.contents, read.objects, read.formatColumns, read.formatRows),
                  std::tie(contents, objects, formatColumns, formatRows))
            << attributes;
    }
    EXPECT_FALSE(readProtection(LoggedSheet(worksheet("<sheetData/>")).part).formatRows);
}

}  // namespace
}  // namespace mergeloom::embedded
