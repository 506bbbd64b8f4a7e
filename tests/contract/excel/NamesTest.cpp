#include "contract/excel/OfficeTest.h"

namespace mergeloom {
namespace {

const std::string kNames =
    "<definedNames><definedName name=\"Gone\">#REF!</definedName>"
    "<definedName name=\"Local\" localSheetId=\"1\">'Year ''26'!$A$1</definedName>"
    "<definedName name=\"Moving\">OFFSET(Plain!$A$1,1,1)</definedName>"
    "<definedName name=\"Rate\">0.19</definedName>"
    "<definedName name=\"Total\">'Year ''26'!$B$2:$C$3</definedName>"
    "<definedName name=\"Two\">Plain!$A$1,Plain!$B$2</definedName></definedNames>";

class OfficeNames : public OfficeTest {
  protected:
    void openNamed() { open(workbookFile({{"Plain"}, {"Year '26"}}, kNames)); }
    /// Returns the formula of a name in the saved file.
    std::string saved(const std::string& name) { return reopened()->Names()->Item(name)->RefersToLocal(); }
};

INSTANTIATE_TEST_SUITE_P(Offices, OfficeNames, testing::ValuesIn(kContractOffices), nameOfOffice);

TEST_P(OfficeNames, TellWhichCellsTheyStandFor) {
    openNamed();
    const excel::NamesPtr names = workbook->Names();
    EXPECT_EQ(names->Count(), 6);
    const excel::RangePtr total = names->Item("TOTAL")->RefersToRange();
    EXPECT_EQ(total->AddressLocal(), "$B$2:$C$3");
    EXPECT_EQ(total->Worksheet()->Name(), "Year '26");
    EXPECT_EQ(names->Item("total")->Name(), "Total");
    EXPECT_EQ(names->Item("Year '26!local")->Name(), "Year '26!Local");
    EXPECT_EQ(names->Item("Year '26!local")->RefersToRange()->AddressLocal(), "$A$1");
    for (const auto& [name, formula] :
         std::vector<std::pair<std::string, std::string>>{{"Rate", "=0.19"},
                                                          {"Gone", "=#REF!"},
                                                          {"Two", "=Plain!$A$1,Plain!$B$2"},
                                                          {"Moving", "=OFFSET(Plain!$A$1,1,1)"}}) {
        EXPECT_EQ(names->Item(name)->RefersToLocal(), formula);
        EXPECT_EQ(errorOf([&] { names->Item(name)->RefersToRange(); }).number(), kApplicationDefined) << name;
    }
    for (const std::string name : {"Nothing", "Local", "Plain!Local", "Nowhere!Local"}) {
        EXPECT_FALSE(names->Exists(name)) << name;
        EXPECT_EQ(errorOf([&] { names->Item(name); }).number(), kApplicationDefined) << name;
    }
    EXPECT_EQ(errorOf([&] { names->Item(7); }).number(), kApplicationDefined);
}

TEST_P(OfficeNames, AreAddedForTheActiveSheetAndSaved) {
    openNamed();
    const excel::NamesPtr names = workbook->Names();
    cell(1, 1, 2)->Select();
    EXPECT_EQ(names->Add("ammOrderDate", "=$B$3")->RefersToLocal(), "='Year ''26'!$B$3");
    EXPECT_EQ(names->Add("local", "=Plain!$A$5")->RefersToRange()->Worksheet()->Name(), "Plain");
    EXPECT_EQ(names->Item("Year '26!Local")->RefersToRange()->AddressLocal(), "$A$1");
    EXPECT_EQ(names->Add("ammLost", "=#REF!")->RefersToLocal(), "=#REF!");
    EXPECT_EQ(names->Add("ammMoving", "=OFFSET(Plain!$A$1,1,2)")->RefersToLocal(), "=OFFSET(Plain!$A$1,1,2)");
    names->Item("TOTAL")->SetRefersToLocal("=$D$4:$E$9");
    names->Add("tWo", "=1");
    EXPECT_EQ(names->Count(), 10);
    EXPECT_EQ(saved("ammOrderDate"), "='Year ''26'!$B$3");
    EXPECT_EQ(saved("Total"), "='Year ''26'!$D$4:$E$9");
    EXPECT_EQ(saved("Two"), "=1");
    EXPECT_EQ(saved("Moving"), "=OFFSET(Plain!$A$1,1,1)");
    EXPECT_EQ(saved("ammLost"), "=#REF!");
}

TEST_P(OfficeNames, RefuseWhatExcelWouldCallDamaged) {
    add();
    const excel::NamesPtr names = workbook->Names();
    for (const std::string name :
         {"", "1st", "a b", "amm1", "AMM2024", "xfd1", "R1C1", "r", "C", "a-b", "TRUE", "false"}) {
        EXPECT_EQ(errorOf([&] { names->Add(name, "=$A$1"); }).number(), kApplicationDefined) << name;
    }
    EXPECT_EQ(errorOf([&] { names->Add(std::string(256, 'a'), "=$A$1"); }).number(), kApplicationDefined);
    for (const std::string formula : {"$A$1", "=", ""})
        EXPECT_EQ(errorOf([&] { names->Add("good", formula); }).number(), kApplicationDefined) << formula;
    EXPECT_EQ(names->Count(), 0);
    EXPECT_FALSE(names->Exists("good"));
    EXPECT_TRUE(workbook->Saved());
}

TEST_P(OfficeNames, CountOnFromTheFirstFreeOne) {
    if (!hasUndo()) GTEST_SKIP() << "the office has no steps";
    add();
    const excel::NamesPtr names = workbook->Names();
    for (const std::string name : {"ammA_ref1", "AMMA_REF2", "ammA_ref4"})
        names->Add(name, "=$A$1");
    EXPECT_EQ(names->firstFreeCounter("amma_ref"), 3);
    application->UndoRecord()->StartCustomRecord("Drop");
    names->Add("ammA_ref3", "=$A$1");
    EXPECT_EQ(names->firstFreeCounter("ammA_ref"), 5);
    application->UndoRecord()->EndCustomRecord();
    EXPECT_TRUE(workbook->Undo(1));
    EXPECT_EQ(names->firstFreeCounter("ammA_ref"), 3);
    EXPECT_EQ(names->firstFreeCounter("ammB_ref"), 1);
}

/// Drops many places beside and below each other, in any order and with any content around them.
TEST_P(OfficeNames, ReachTheFileWhateverStandsBesideTheirCells) {
    open(workbookFile({{"One",
                        "<sheetData><row r=\"8\"><c r=\"A8\" t=\"inlineStr\"><is><t>kept</t></is></c></row>"
                        "</sheetData>"},
                       {"Two"}}));
    const excel::NamesPtr names = workbook->Names();
    std::vector<std::pair<std::string, std::string>> expected;
    const auto add = [&](const std::string& name, int row, int column) {
        const std::string address = cell(row, column)->AddressLocal();
        names->Add(name, "=" + address);
        expected.emplace_back(name, "=One!" + address);
    };
    for (const int row : {3, 1, 2}) {
        cell(row, 1)->SetValue("Caption " + std::to_string(row));
        add("ammPlace" + std::to_string(row), row, 2);
        cell(row, 2)->SetValue("[" + std::to_string(row) + "]");
    }
    add("ammAgain", 2, 2);
    add("ammÖrtlich", 4, 2);
    for (const int row : {7, 8, 9})
        add("ammBeside" + std::to_string(row), row, 2);
    add("ammEdge", 5, 1);
    add("ammEdge2", 6, 1);

    const excel::WorkbookPtr saved = reopened();
    EXPECT_EQ(saved->Names()->Count(), static_cast<int>(expected.size()));
    for (const auto& [name, formula] : expected)
        EXPECT_EQ(saved->Names()->Item(name)->RefersToLocal(), formula) << name;
    std::string shown;
    for (int row = 1; row <= 9; ++row) {
        const excel::WorksheetPtr first = saved->Worksheets()->Item(1);
        shown += first->Cells(row, 1)->Value() + "|" + first->Cells(row, 2)->Value() + " ";
    }
    EXPECT_EQ(shown, "Caption 1|[1] Caption 2|[2] Caption 3|[3] | | | | kept| | ");
}

TEST_P(OfficeNames, AreDeletedAndComeBackWithTheStep) {
    if (!hasUndo()) GTEST_SKIP() << "the office has no steps";
    openNamed();
    const auto shown = [&] {
        std::string all;
        for (int number = 1; number <= workbook->Names()->Count(); ++number) {
            const excel::DefinedNamePtr name = workbook->Names()->Item(number);
            all += name->Name() + name->RefersToLocal() + " ";
        }
        return all;
    };
    const std::string before = shown();
    const auto step = application->UndoRecord();
    step->StartCustomRecord("A drop");
    workbook->Names()->Add("ammPlace", "=$B$3");
    for (const std::string name : {"Rate", "Year '26!local", "AMMPLACE", "Moving"})
        workbook->Names()->Item(name)->Delete();
    EXPECT_EQ(workbook->Names()->Count(), 3);
    EXPECT_FALSE(workbook->Names()->Exists("Moving"));
    workbook->Names()->Add("Rate", "=7");
    step->EndCustomRecord();
    EXPECT_EQ(workbook->Names()->Item("total")->RefersToLocal(), "='Year ''26'!$B$2:$C$3");
    ASSERT_TRUE(workbook->Undo(1));
    EXPECT_EQ(shown(), before);
    EXPECT_EQ(workbook->Names()->Item("Year '26!LOCAL")->RefersToLocal(), "='Year ''26'!$A$1");

    while (workbook->Names()->Count() > 0)
        workbook->Names()->Item(1)->Delete();
    EXPECT_EQ(reopened()->Names()->Count(), 0);
}

/// Undoing a step removes its changes, even if the document has the same content before, and restores the
/// former contents.
TEST_P(OfficeNames, GoWithTheStepThatMadeThem) {
    if (!hasUndo()) GTEST_SKIP() << "the office has no steps";
    add();
    const excel::NamesPtr names = workbook->Names();
    cell(1, 1)->SetValue("former");
    const auto step = application->UndoRecord();
    step->StartCustomRecord("A drop");
    for (const int row : {1, 2, 3}) {
        cell(row, 1)->SetValue("Caption");
        names->Add("ammPlace" + std::to_string(row), "=" + cell(row, 2)->AddressLocal());
        cell(row, 2)->SetValue("first");
        cell(row, 2)->SetValue("last");
        if (row == 2) {
            EXPECT_EQ(cell(1, 2)->Value(), "last");
            EXPECT_EQ(names->Item("ammPlace1")->RefersToLocal(), "=Sheet1!$B$1");
        }
    }
    step->EndCustomRecord();
    EXPECT_EQ(cell(3, 2)->Value(), "last");
    ASSERT_TRUE(workbook->Undo(1));
    EXPECT_EQ(names->Count(), 0);
    EXPECT_EQ(cell(1, 1)->Value() + cell(1, 2)->Value() + cell(2, 1)->Value() + cell(3, 2)->Value(),
              "former");
    names->Add("ammPlace2", "=$C$1");
    EXPECT_EQ(saved("ammPlace2"), "=Sheet1!$C$1");
    EXPECT_EQ(reader->Workbooks()->Item(1)->Names()->Count(), 1);
}

}  // namespace
}  // namespace mergeloom
