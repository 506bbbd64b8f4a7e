#include "ExcelDropTest.h"
#include "doubles/FaultyExcel.h"

namespace mergeloom {
namespace {

constexpr const char* kForm = R"(<db><Form Name="F" CurrentView="1">
  <Control Name="A"/>
  <Control Name="L" ControlType="Subform"><Form HasRecordset="1"><Control Name="P"/></Form></Control>
  <Control Name="B" ControlType="Subform"><Form><Control Name="C" Caption="See"/></Form></Control>
  <Control Name="D" Image="d.gif"/>
</Form></db>)";

class ExcelDropUndo : public ExcelDropTest {
  protected:
    void SetUp() override {
        load(kForm);
        open();
        cell(1, 2)->SetValue("kept");
        workbook->Names()->Add("ammA", "=$B$1");
        goTo(1, 1);
        pictures["d.gif"] = "/d.gif";
        files.files["/d.gif"] = pictureFile(30, 200);
        workbook->SetSaved(true);
    }
    std::string state() {
        return cells() + names() + shapes() + std::to_string(cell(5, 2)->RowHeight().value) + " " +
               std::to_string(cell(5, 2)->ColumnWidth().value);
    }
};

/// After a failure of any step, the workbook is unchanged, and no earlier step of the user is undone.
TEST_F(ExcelDropUndo, AFailureAtAnyStepChangesNothing) {
    const std::string before = state();
    int failingCall = 1;
    for (bool failed = true; failed; ++failingCall) {
        ASSERT_LT(failingCall, 100) << "the drop never ends";
        CallCounter counter{failingCall};
        const excel::WorkbookPtr whole = workbook;
        workbook = std::make_shared<FaultyWorkbook>(whole, counter);
        errors.reports.clear();

        const bool dropped = drop(node("1k"));
        failed = counter.hasFailed();
        EXPECT_EQ(dropped, !failed) << failingCall;
        EXPECT_EQ(errors.reports.size(), failed ? 1U : 0U) << failingCall;
        EXPECT_EQ(workbook->Saved(), failed) << failingCall;
        workbook = whole;
        if (failed) {
            EXPECT_EQ(state(), before) << failingCall;
        }
        goTo(1, 1);
    }
    EXPECT_GT(failingCall, 20);
    EXPECT_EQ(cells(), "A|[A]\nL|P\n|[LP]\nB|See|[BC]\nD\n");
    EXPECT_EQ(shapes(), "ammD:B5 ");
}

TEST_F(ExcelDropUndo, APictureThatIsNoneEndsTheForm) {
    files.files["/d.gif"] = "no picture";
    const std::string before = state();
    EXPECT_FALSE(drop(node("1k")));
    EXPECT_EQ(state(), before);
    EXPECT_TRUE(workbook->Saved());
    ASSERT_EQ(errors.reports.size(), 1U);
    EXPECT_EQ(errors.reports[0].number, kFileCouldNotBeRead);
    EXPECT_NE(errors.reports[0].description.find("/d.gif"), std::string::npos);
    EXPECT_EQ(errors.reports[0].procedure, "InsertPictureFromFile");
}

TEST_F(ExcelDropUndo, ADropIsOneStep) {
    const std::string before = state();
    ASSERT_TRUE(drop(node("1k")));
    EXPECT_FALSE(workbook->Saved());
    ASSERT_NE(state(), before);
    EXPECT_TRUE(workbook->Undo(1));
    EXPECT_EQ(state(), before);
}

}  // namespace
}  // namespace mergeloom
