#include "contract/excel/OfficeTest.h"

#include <sstream>

namespace mergeloom {
namespace {

class OfficeWorkbook : public OfficeTest {
  protected:
    /// Everything that a step may change.
    std::string state() {
        std::ostringstream shown;
        shown << active() << " [" << cell(2, 2)->Value() << "] " << cell(4, 4)->ColumnWidth().value << " "
              << cell(4, 4)->RowHeight().value << " ";
        const excel::NamesPtr names = workbook->Names();
        for (int number = 1; number <= names->Count(); ++number)
            shown << names->Item(number)->Name() << names->Item(number)->RefersToLocal() << " ";
        for (int number = 1; number <= sheet()->Shapes()->Count(); ++number) {
            const excel::ShapePtr shape = sheet()->Shapes()->Item(number);
            shown << shape->Name() << ":" << shape->TopLeftCell()->AddressLocal() << " "
                  << std::lround(shape->Width().value) << " ";
        }
        return shown.str();
    }
    void edit() {
        cell(2, 2)->SetValue("text");
        workbook->Names()->Add("ammNew", "=$B$2");
        workbook->Names()->Add("Old", "=$B$2");
        cell(4, 4)->SetColumnWidth({33});
        cell(4, 4)->SetRowHeight({99});
        sheet()->Shapes()->Item("former")->Delete();
        const excel::PicturePtr picture = sheet()->Pictures()->Insert("/letterhead.png");
        picture->SetName("ammNew");
        picture->SetWidth({50});
        picture->SetLeft({10});
        cell(3, 3, 2)->Select();
    }
};

INSTANTIATE_TEST_SUITE_P(Offices, OfficeWorkbook, testing::ValuesIn(kContractOffices), nameOfOffice);

TEST_P(OfficeWorkbook, TakesAStepBackAltogether) {
    if (!hasUndo()) GTEST_SKIP() << "the office has no steps";
    open(workbookFile({{"One"}, {"Two"}},
                      "<definedNames><definedName name=\"Old\">1</definedName>"
                      "</definedNames>"));
    putPicture("letterhead.png");
    cell(7, 7)->Select();
    sheet()->Pictures()->Insert("/letterhead.png")->SetName("former");
    cell(2, 2)->SetValue("before");
    EXPECT_FALSE(workbook->Undo(1)) << "nothing was recorded";
    const std::string before = state();
    for (const bool isKept : {false, true}) {
        workbook->SetSaved(true);
        application->UndoRecord()->StartCustomRecord("Drop");
        edit();
        application->UndoRecord()->EndCustomRecord();
        EXPECT_FALSE(workbook->Saved());
        EXPECT_NE(state(), before);
        if (isKept) break;
        EXPECT_TRUE(workbook->Undo(1));
        EXPECT_EQ(state(), before);
        EXPECT_FALSE(workbook->Undo(1));
    }
    application->UndoRecord()->StartCustomRecord("Nothing");
    application->UndoRecord()->EndCustomRecord();
    EXPECT_FALSE(workbook->Undo(1)) << "an empty record takes no earlier one back";
    const excel::ShapesPtr saved = reopened()->Worksheets()->Item(1)->Shapes();
    ASSERT_EQ(saved->Count(), 1);
    EXPECT_EQ(saved->Item(1)->Name(), "ammNew");
}

TEST_P(OfficeWorkbook, KnowsItsFileAndWhetherItIsSaved) {
    add();
    EXPECT_EQ(application->Name(), "Microsoft Excel");
    EXPECT_EQ(workbook->Name(), "Book1");
    EXPECT_TRUE(workbook->Saved());
    EXPECT_EQ(errorOf([&] { workbook->Save(); }).number(), kFileCouldNotBeSaved);
    cell(1, 1)->Select();
    EXPECT_TRUE(workbook->Saved()) << "a selection is no change";
    cell(1, 1)->SetValue("x");
    EXPECT_FALSE(workbook->Saved());
    workbook->SaveAs("/folder/one.xlsx", excel::XlFileFormat::xlOpenXMLWorkbook);
    EXPECT_TRUE(workbook->Saved());
    EXPECT_EQ(workbook->Name() + " " + workbook->FullName(), "one.xlsx /folder/one.xlsx");
    cell(1, 1)->SetValue("y");
    workbook->Close(excel::SaveChanges::Yes);
    EXPECT_EQ(application->Workbooks()->Count(), 0);
    EXPECT_EQ(errorOf([&] { application->ActiveCell(); }).number(), kNotAvailable);

    workbook = application->Workbooks()->Add("/folder/one.xlsx");
    EXPECT_EQ(workbook->Name(), "Book2");
    EXPECT_EQ(cell(1, 1)->Value(), "y");
    cell(1, 1)->SetValue("z");
    workbook->Close(excel::SaveChanges::No);
    workbook = application->Workbooks()->Open("/folder/one.xlsx");
    EXPECT_EQ(cell(1, 1)->Value(), "y");
    cell(1, 1)->SetValue("saved again");
    workbook->Save();
    application->Quit();
    EXPECT_EQ(application->Workbooks()->Count(), 0);
    workbook = application->Workbooks()->Open("/folder/one.xlsx");
    EXPECT_EQ(cell(1, 1)->Value(), "saved again");
}

TEST_P(OfficeWorkbook, IsWrittenInTheFormatsThatTheOfficeNames) {
    if (GetParam() == OfficeKind::Com) GTEST_SKIP() << "Excel writes more formats than its double";
    using enum excel::XlFileFormat;
    for (const excel::XlFileFormat format :
         {xlOpenXMLWorkbook, xlOpenXMLWorkbookMacroEnabled, xlOpenXMLTemplate, xlOpenXMLTemplateMacroEnabled,
          xlExcel8, xlExcel12}) {
        add();
        cell(1, 1)->SetValue("x");
        const AutomationError error = errorOf([&] { workbook->SaveAs("/file", format); });
        EXPECT_EQ(error.number() == 0, application->canSaveAs(format)) << static_cast<int>(format);
        EXPECT_EQ(workbook->Saved(), application->canSaveAs(format));
        workbook->Close(excel::SaveChanges::No);
    }
    EXPECT_TRUE(application->canSaveAs(xlOpenXMLWorkbook));
    EXPECT_FALSE(application->canSaveAs(xlExcel12));
}

TEST_P(OfficeWorkbook, IsRefusedWhenItIsNone) {
    files.files["/no.xlsx"] = "this is no workbook";
    for (const std::string path : {"/no.xlsx", "/missing.xlsx"}) {
        const AutomationError error = errorOf([&] { application->Workbooks()->Open(path); });
        EXPECT_EQ(error.number(), kFileCouldNotBeRead);
        EXPECT_THAT(error.description(), testing::HasSubstr(path));
    }
    EXPECT_EQ(application->Workbooks()->Count(), 0);
}

}  // namespace
}  // namespace mergeloom
