#include "automation/ExcelDouble.h"
#include "com/OfficeFaults.h"
#include "doubles/ExcelFiles.h"
#include "office/com/automation/AutomationObject.h"
#include "office/com/automation/ErrorNumbers.h"
#include "office/com/excel/ComExcel.h"
#include "office/embedded/excel/EmbeddedExcel.h"
#include "office/model/Undo.h"
#include "office/model/excel/Application.h"
#include "office/model/excel/Names.h"
#include "office/model/excel/Range.h"
#include "office/model/excel/Workbook.h"
#include "office/model/excel/Worksheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom {
namespace {

using automation::FaultKind;
using automation::faults;
using testing::HasSubstr;

constexpr auto kXlsx = excel::XlFileFormat::xlOpenXMLWorkbook;

class ExcelFaults : public OfficeFaults<excel::ApplicationPtr> {
  protected:
    ExcelFaults() : OfficeFaults("/book.xlsx", "Town: [Town] $B$1") {}

    excel::ApplicationPtr makeInner() override { return embedded::makeExcelApplication(files); }
    com::DispatchPtr makeDouble(std::function<void()> quit) override {
        return automation::makeExcelDouble(inner, {}, std::move(quit));
    }
    void write() override {
        const excel::ApplicationPtr office = com::makeExcelApplication(server);
        const excel::WorkbookPtr workbook = office->Workbooks()->Add("");
        const excel::RangePtr cell = office->ActiveCell();
        cell->Select();
        office->Selection()->SetValue2("Town:");
        cell->Offset(0, cell->MergeArea()->Columns()->Count())->Activate();
        const excel::RangePtr place = office->ActiveCell();
        if (!workbook->Names()->Exists("Town")) workbook->Names()->Add("Town", "=" + place->AddressLocal());
        place->SetValue("[Town]");
        workbook->SaveAs("/book.xlsx", kXlsx);
        office->Quit();
    }
    /// Returns the texts of the first two cells, and the cells of the name.
    std::string content() override {
        const excel::ApplicationPtr office = embedded::makeExcelApplication(files);
        const excel::WorkbookPtr workbook = office->Workbooks()->Open("/book.xlsx");
        const excel::RangePtr cell = workbook->Worksheets()->Item(1)->Range("A1");
        return cell->Value() + " " + cell->Offset(0, 1)->Value() + " " +
               workbook->Names()->Item("Town")->RefersToRange()->AddressLocal();
    }
    int openDocuments() override { return inner->Workbooks()->Count(); }
};

TEST_F(ExcelFaults, ABusyOfficeIsAskedAgain) {
    expectThatBusyCallsAreRepeated();
}

TEST_F(ExcelFaults, AnOfficeThatStaysBusyIsTold) {
    expectThatAnOfficeThatStaysBusyIsTold(FaultKind::Rejected, 8, "Excel is busy");
}

TEST_F(ExcelFaults, AnErrorAtAnyCallLeavesTheFileAndEndsTheOffice) {
    expectThatAnErrorLeavesAFileAndEndsTheOffice();
}

TEST_F(ExcelFaults, AMissingMemberIsNamed) {
    faults().remove("MergeArea");
    const AutomationError error = errorOfWriting();
    EXPECT_EQ(error.number(), com::kMemberUnknown);
    EXPECT_THAT(error.description(), HasSubstr("Range.MergeArea"));
    EXPECT_EQ(ends, 1);
}

TEST_F(ExcelFaults, ItemsThatThereAreNot) {
    const excel::ApplicationPtr office = com::makeExcelApplication(server);
    const excel::WorkbookPtr workbook = office->Workbooks()->Add("");
    EXPECT_THROW(workbook->Worksheets()->Item(7), AutomationError);
    EXPECT_THROW(workbook->Names()->Item("None"), AutomationError);
    EXPECT_THROW(workbook->Names()->Item(1), AutomationError);
}

TEST_F(ExcelFaults, AFileThatMustNotBeChangedIsNotSaved) {
    files.files["/given.xlsx"] = workbookFile({{"Given"}});
    const excel::ApplicationPtr office = com::makeExcelApplication(server);
    const excel::WorkbookPtr workbook = office->Workbooks()->Open("/given.xlsx");
    faults().setReadOnly(true);
    try {
        workbook->Save();
        ADD_FAILURE() << "it was saved";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), kFileCouldNotBeSaved);
        EXPECT_THAT(error.description(), HasSubstr("/given.xlsx"));
    }
}

TEST_F(ExcelFaults, WorkbooksOfTheUserStay) {
    excel::ApplicationPtr office = com::makeExcelApplication(server);
    const excel::WorkbookPtr own = office->Workbooks()->Add("");
    inner->Workbooks()->Add("");
    EXPECT_EQ(office->Workbooks()->Count(), 1) << "the user's is not counted";
    office->Quit();
    office.reset();
    EXPECT_EQ(ends, 0);
    EXPECT_EQ(inner->Workbooks()->Count(), 1);
    const auto session = std::make_shared<com::AutomationSession>("Excel", com::Patience{}, nullptr);
    const com::AutomationObject application(session, server.application, "Application");
    EXPECT_TRUE(application.get("Visible").truth());
    EXPECT_TRUE(application.get("UserControl").truth());
}

/// Macros, dialogs and events of opened files are off.
TEST_F(ExcelFaults, MacrosAndDialogsAreOff) {
    const excel::ApplicationPtr office = com::makeExcelApplication(server);
    const auto session = std::make_shared<com::AutomationSession>("Excel", com::Patience{}, nullptr);
    const com::AutomationObject application(session, server.application, "Application");
    EXPECT_EQ(application.get("AutomationSecurity").integer(), 3);
    EXPECT_FALSE(application.get("DisplayAlerts").truth());
    EXPECT_FALSE(application.get("EnableEvents").truth());
}

}  // namespace
}  // namespace mergeloom
