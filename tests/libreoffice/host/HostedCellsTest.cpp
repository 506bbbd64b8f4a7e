#include "libreoffice/host/HostTest.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Shapes.h"
#include "office/model/excel/Workbook.h"
#include "office/model/excel/Worksheet.h"

#include <gmock/gmock.h>

#include <cmath>

namespace mergeloom {

namespace {

constexpr HostPoint kOtherCells[] = {{300, 300}, {500, 400}};

class HostedCells : public HostTest {
  protected:
    void SetUp() override { host().CreateNew("Excel.Template"); }

    excel::RangePtr activeCell() { return workbook()->Application()->ActiveCell(); }
    std::string placedCell(HostPoint point) {
        EXPECT_TRUE(host().placeCaret(point));
        host().beginEditing();
        const std::string address = activeCell()->AddressLocal();
        host().endEditing();
        return address;
    }
};

TEST_F(HostedCells, TheCellCursorGoesToThePoint) {
    EXPECT_NE(placedCell(kOtherCells[0]), placedCell(kOtherCells[1]));
    EXPECT_FALSE(host().placeCaret({10, 400})) << "the rows' numbers";
    EXPECT_FALSE(host().placeCaret({60, 8})) << "the menu";
}

TEST_F(HostedCells, PlacingLeavesTheKeyboardWhereItIs) {
    window().click(TestWindow::kPaneX / 2, 400);
    window().keysTaken();
    ASSERT_TRUE(host().placeCaret(kOtherCells[0]));
    TestWindow::press("b");
    EXPECT_TRUE(becomesTrue([] { return window().keysTaken() == 1; }));
}

TEST_F(HostedCells, ADropIsOneStepForUserAndModel) {
    load(kField);
    EXPECT_TRUE(workbook()->Saved());
    ASSERT_TRUE(dropAt(kOtherCells[0], node("2k")));
    EXPECT_FALSE(workbook()->Saved());
    EXPECT_EQ(workbook()->Names()->Count(), 1);
    window().clickInPane(kOtherCells[1].x, kOtherCells[1].y);
    TestWindow::press("ctrl+z");
    EXPECT_TRUE(becomesTrue([] { return host().placeNames().empty(); }));
    ASSERT_TRUE(dropAt(kOtherCells[0], node("2k")));
    EXPECT_EQ(host().placeNames().size(), 1U);
    EXPECT_TRUE(workbook()->Undo(1));
    EXPECT_TRUE(host().placeNames().empty());
    TestWindow::press("ctrl+y");
    EXPECT_FALSE(placedCell(kOtherCells[1]).empty());
    EXPECT_TRUE(host().placeNames().empty()) << "what the model takes back is not redone";
}

/// Undoing and redoing restore texts, names, sizes and pictures, repeatedly.
TEST_F(HostedCells, ADropThatIsUndoneCanBeRedone) {
    load(
        "<db><Form Name='F' CurrentView='1'><Control Name='A'/><Control Name='D' "
        "Image='d.gif'/></Form></db>");
    pictures["d.gif"] = "/d.gif";
    stage().files.files["/d.gif"] = "GIF89a\x1e" + std::string(1, '\0') + "\x3c" + std::string(4, '\0') + ";";
    const auto state = [] {
        host().beginEditing();
        std::string shown;
        for (int number = 1; number <= workbook()->Names()->Count(); ++number) {
            const excel::DefinedNamePtr name = workbook()->Names()->Item(number);
            shown += name->Name() + "=" + name->RefersToRange()->Value() + " ";
        }
        const excel::WorksheetPtr sheet = workbook()->Worksheets()->Item(1);
        const excel::ShapesPtr shapes = sheet->Shapes();
        for (int number = 1; number <= shapes->Count(); ++number) {
            const excel::ShapePtr shape = shapes->Item(number);
            shown += shape->Name() + ":" + shape->TopLeftCell()->AddressLocal() + " " +
                     std::to_string(std::lround(shape->TopLeftCell()->RowHeight().value)) + "/" +
                     std::to_string(std::lround(shape->Height().value)) + " ";
        }
        host().endEditing();
        return shown;
    };
    ASSERT_TRUE(dropAt(kOtherCells[0], node("1k")));
    const std::string dropped = state();
    EXPECT_NE(dropped.find("ammA=[A] "), std::string::npos) << dropped;
    EXPECT_NE(dropped.find("ammD:"), std::string::npos) << dropped;
    window().clickInPane(kOtherCells[1].x, kOtherCells[1].y);
    for (int round = 0; round < 2; ++round) {
        TestWindow::press("ctrl+z");
        ASSERT_TRUE(becomesTrue([] { return host().placeNames().empty(); }));
        EXPECT_EQ(state(), "");
        TestWindow::press("ctrl+y");
        ASSERT_TRUE(becomesTrue([] { return host().placeNames().size() == 2; }));
        EXPECT_EQ(state(), dropped);
    }
    EXPECT_FALSE(workbook()->Saved());
}

TEST_F(HostedCells, WhatACellIsStillTakingIsAChange) {
    ASSERT_TRUE(host().placeCaret(kOtherCells[1]));
    workbook()->SaveAs("/saved.xlsx", excel::XlFileFormat::xlOpenXMLWorkbook);
    window().clickInPaneAndTypeAtOnce(kOtherCells[0].x, kOtherCells[0].y, "typed");
    TestWindow::press("ctrl+s");
    ASSERT_TRUE(becomesTrue([] { return !stage().listener.takeCommands().empty(); }));
    EXPECT_TRUE(workbook()->Saved());
    host().endInput();
    EXPECT_FALSE(workbook()->Saved());
}

TEST_F(HostedCells, SavesWhatACellIsStillTaking) {
    // Waits for the layout, before which another cell may be at the point.
    ASSERT_TRUE(host().placeCaret(kOtherCells[1]));
    window().clickInPaneAndTypeAtOnce(kOtherCells[0].x, kOtherCells[0].y, "typed");
    TestWindow::press("ctrl+s");
    ASSERT_TRUE(becomesTrue([] { return !stage().listener.takeCommands().empty(); }));
    workbook()->SaveAs("/saved.xlsx", excel::XlFileFormat::xlOpenXMLWorkbook);
    host().Open("/saved.xlsx", FileAccess::Edit, {});
    ASSERT_TRUE(host().placeCaret(kOtherCells[0]));
    host().beginEditing();
    EXPECT_EQ(activeCell()->Value(), "typed");
    host().endEditing();
}

/// Opens the formats that the documentation names. Files that are saved again keep their text.
TEST_F(HostedCells, OpensWorkbooksOfOtherFormats) {
    struct Case {
        const char* path;
        std::string bytes;
        bool isSavedAgain;
    };
    const Case cases[] = {
        {"/given.slk", "ID;PWXL;N;E\nC;Y1;X1;K\"kept\"\nE\n", true},
        {"/given.dif",
         "TABLE\n0,1\n\"\"\nVECTORS\n0,1\n\"\"\nTUPLES\n0,1\n\"\"\nDATA\n0,0\n\"\"\n-1,0\nBOT\n1,"
         "0\n\"kept\"\n"
         "-1,0\nEOD\n",
         true},
        {"/given.FODS",
         "<?xml version='1.0' encoding='UTF-8'?><office:document "
         "xmlns:office='urn:oasis:names:tc:opendocument:xmlns:office:1.0' "
         "xmlns:table='urn:oasis:names:tc:opendocument:xmlns:table:1.0' "
         "xmlns:text='urn:oasis:names:tc:opendocument:xmlns:text:1.0' office:version='1.3' "
         "office:mimetype=\"application/"
         "vnd.oasis.opendocument.spreadsheet\"><office:body><office:spreadsheet>"
         "<table:table table:name='One'><table:table-row><table:table-cell "
         "office:value-type='string'><text:p>"
         "kept</text:p></table:table-cell></table:table-row></table:table></office:spreadsheet></office:body>"
         "</office:document>",
         false},
    };
    for (const Case& c : cases) {
        stage().files.files[c.path] = c.bytes;
        host().Open(c.path, FileAccess::Edit, {});
        ASSERT_TRUE(std::holds_alternative<excel::WorkbookPtr>(host().ActiveDocument())) << c.path;
        host().beginEditing();
        EXPECT_EQ(activeCell()->Value(), "kept") << c.path;
        host().endEditing();
        if (!c.isSavedAgain) continue;
        workbook()->Save();
        EXPECT_THAT(stage().files.read(c.path), ::testing::HasSubstr("kept")) << c.path;
    }
}

}  // namespace

}  // namespace mergeloom
