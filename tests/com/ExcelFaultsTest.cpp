#include "automation/ExcelDouble.h"
#include "automation/Faults.h"
#include "base/AutomationError.h"
#include "doubles/ExcelFiles.h"
#include "doubles/MemoryFileStore.h"
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

/// An Excel over calls of automation that fail as planned, in this program.
class ExcelFaults : public testing::Test {
  protected:
    void SetUp() override { start(); }
    void TearDown() override { faults().clear(); }

    void start() {
        faults().clear();
        ends = 0;
        files.files = {{"/book.xlsx", "the former file"}};
        inner = embedded::makeExcelApplication(files);
        server = {.patience = {.attempts = 4, .pauseMilliseconds = 0},
                  .application = automation::makeExcelDouble(inner, {}, [this] { ++ends; })};
    }
    /// A workbook with a label and a place, in an office of its own.
    void write() {
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
    AutomationError errorOfWriting() {
        try {
            write();
        } catch (const AutomationError& error) {
            return error;
        }
        return {0, "no error"};
    }
    /// The texts of the first two cells, and the cells of the name.
    std::string book() {
        const excel::ApplicationPtr office = embedded::makeExcelApplication(files);
        const excel::WorkbookPtr workbook = office->Workbooks()->Open("/book.xlsx");
        const excel::RangePtr cell = workbook->Worksheets()->Item(1)->Range("A1");
        return cell->Value() + " " + cell->Offset(0, 1)->Value() + " " +
               workbook->Names()->Item("Town")->RefersToRange()->AddressLocal();
    }

    MemoryFileStore files;
    excel::ApplicationPtr inner;
    com::OfficeServer server;
    int ends = 0;
};

constexpr const char* kWritten = "Town: [Town] $B$1";

TEST_F(ExcelFaults, ABusyOfficeIsAskedAgain) {
    for (const FaultKind kind : {FaultKind::Busy, FaultKind::Rejected}) {
        int call = 1;
        for (int made = call; made >= call; ++call) {
            start();
            faults().plan(kind, call, 3);
            EXPECT_EQ(errorOfWriting().number(), 0U) << call;
            EXPECT_EQ(book(), kWritten) << call;
            EXPECT_EQ(ends, 1);
            made = faults().calls();
        }
        EXPECT_GT(call, 15) << "the last call was not reached";
    }
}

TEST_F(ExcelFaults, AnOfficeThatStaysBusyIsTold) {
    faults().plan(FaultKind::Rejected, 8, 1000);
    const AutomationError error = errorOfWriting();
    EXPECT_EQ(error.number(), kNotAvailable);
    EXPECT_THAT(error.description(), HasSubstr("Excel is busy"));
    EXPECT_EQ(files.files["/book.xlsx"], "the former file");
}

TEST_F(ExcelFaults, AnErrorAtAnyCallLeavesTheFileAndEndsTheOffice) {
    write();
    const int calls = faults().calls();
    int untold = 0;
    for (int call = 1; call <= calls; ++call) {
        start();
        faults().plan(FaultKind::Error, call, 1);
        if (errorOfWriting().number() == 0U) ++untold;
        const bool isWritten = files.files["/book.xlsx"] != "the former file";
        EXPECT_EQ(isWritten ? book() : kWritten, kWritten) << call;
        EXPECT_EQ(ends, 1) << call;
        EXPECT_EQ(inner->Workbooks()->Count(), 0) << call;
    }
    EXPECT_EQ(untold, 0);
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

/// Macros of opened files are off, and no dialog or event of theirs is waited for.
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
