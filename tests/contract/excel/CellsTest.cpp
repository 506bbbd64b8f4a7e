#include "contract/excel/OfficeTest.h"

namespace mergeloom {
namespace {

using testing::HasSubstr;

const std::string kMerged = "<sheetData/><mergeCells count=\"1\"><mergeCell ref=\"B2:C4\"/></mergeCells>";

class OfficeCells : public OfficeTest {};

INSTANTIATE_TEST_SUITE_P(Offices, OfficeCells, testing::ValuesIn(kContractOffices), nameOfOffice);

TEST_P(OfficeCells, LeadToOtherCellsOfTheirSheetOnly) {
    add();
    const excel::RangePtr start = cell(2, 3);
    EXPECT_EQ(start->AddressLocal(), "$C$2");
    EXPECT_EQ(start->Offset(2, -1)->AddressLocal(), "$B$4");
    EXPECT_EQ(start->Resize(2, 3)->AddressLocal(), "$C$2:$E$3");
    EXPECT_EQ(start->Resize(2, 3)->Offset(1, 1)->AddressLocal(), "$D$3:$F$4");
    EXPECT_EQ(start->Resize(2, 3)->Cells(2, 2)->AddressLocal(), "$D$3");
    EXPECT_EQ(cell(1, 1)->Resize(1048576, 1)->AddressLocal(), "$A:$A");
    EXPECT_EQ(cell(3, 1)->Resize(2, 16384)->AddressLocal(), "$3:$4");
    EXPECT_EQ(cell(1048576, 16384)->AddressLocal(), "$XFD$1048576");
    const std::vector<std::function<void()>> outside{
        [&] { start->Offset(-2, 0); },
        [&] { start->Offset(0, -3); },
        [&] { start->Resize(0, 1); },
        [&] { start->Resize(1048576, 1); },
        [&] { cell(1048577, 1); },
        [&] { cell(1, 16385); },
        [&] { start->Offset(2147483647, 0); },
        [&] { start->Cells(1, -2147483647); },
    };
    for (std::size_t index = 0; index < outside.size(); ++index)
        EXPECT_EQ(errorOf(outside[index]).number(), kApplicationDefined) << index;
}

TEST_P(OfficeCells, TakeTextsAsTexts) {
    add();
    const std::vector<std::string> texts{"2024", "1/2",           "=A1",     "'abc", "TRUE", "1E5", "0012",
                                         "#N/A", " two  blanks ", "<&>\"'x", "a\nb", "é中😀", "-",   ""};
    for (std::size_t index = 0; index < texts.size(); ++index) {
        const int row = static_cast<int>(index) + 1;
        cell(row, 2)->SetValue("former");
        cell(row, 2)->SetValue(texts[index]);
        cell(row, 4)->Resize(1, 2)->SetValue(texts[index]);
    }
    const excel::WorksheetPtr saved = reopened()->Worksheets()->Item(1);
    for (std::size_t index = 0; index < texts.size(); ++index) {
        const int row = static_cast<int>(index) + 1;
        for (const int column : {2, 4, 5}) {
            EXPECT_EQ(cell(row, column)->Value(), texts[index]);
            EXPECT_EQ(saved->Cells(row, column)->Value(), texts[index]);
        }
    }
    EXPECT_THAT(errorOf([&] { cell(1, 1)->SetValue(std::string(32768, 'x')); }).description(),
                HasSubstr("length"));
    EXPECT_THAT(errorOf([&] { cell(1, 1)->Resize(1048576, 2)->SetValue("x"); }).description(),
                HasSubstr("too many"));
}

TEST_P(OfficeCells, ShowWhatTheyHold) {
    open(
        workbookFile({{"One",
                       "<sheetData><row r=\"1\"><c r=\"A1\"><v>2.5</v></c><c r=\"B1\" t=\"b\"><v>1</v></c>"
                       "<c r=\"C1\" t=\"inlineStr\"><is><t>in</t></is></c><c r=\"D1\" t=\"str\"><f>\"a\"&amp;"
                       "\"b\"</f><v>ab</v></c><c r=\"E1\"><v>1234567</v></c><c r=\"F1\" t=\"b\"><v>0</v></c>"
                       "</row></sheetData>"}}));
    const std::vector<std::string> shown{"2.5", "TRUE", "in", "ab", "1234567", "FALSE", ""};
    for (int column = 1; column <= 7; ++column)
        EXPECT_EQ(cell(1, column)->Value(), shown[static_cast<std::size_t>(column) - 1]) << column;
}

TEST_P(OfficeCells, MergedOnesCountAsTheirFirst) {
    open(workbookFile({{"One", kMerged}}));
    EXPECT_EQ(cell(4, 3)->MergeArea()->AddressLocal(), "$B$2:$C$4");
    EXPECT_EQ(cell(4, 4)->MergeArea()->AddressLocal(), "$D$4");
    for (const auto& [row, column, rows, columns, expected] :
         std::vector<std::tuple<int, int, int, int, bool>>{
             {1, 1, 2, 2, true}, {1, 1, 1, 5, false}, {2, 2, 3, 2, true}, {4, 3, 1, 1, true}}) {
        EXPECT_EQ(cell(row, column)->Resize(rows, columns)->MergeCells(), expected) << row << " " << column;
    }
    cell(2, 1)->Resize(2, 4)->SetValue("x");
    EXPECT_EQ(cell(2, 1)->Value() + cell(2, 2)->Value() + cell(3, 4)->Value(), "xxx");
    EXPECT_EQ(cell(2, 3)->Value() + cell(3, 2)->Value(), "");
    cell(3, 3)->Activate();
    EXPECT_EQ(active(), "One!$B$2");
}

TEST_P(OfficeCells, AreSelectedAndActivated) {
    open(workbookFile({{"One", kMerged}, {"Two"}, {"Three", "", "state=\"hidden\""}}));
    EXPECT_EQ(active(), "One!$A$1");
    cell(5, 5)->Resize(2, 2)->Select();
    cell(6, 5)->Activate();
    EXPECT_EQ(active(), "One!$E$6");
    application->Selection()->SetValue2("all");
    EXPECT_EQ(cell(5, 5)->Value() + cell(6, 6)->Value(), "allall") << "the selection stays around its cell";
    cell(9, 9)->Activate();
    application->Selection()->SetValue2("one");
    EXPECT_EQ(cell(9, 9)->Value() + cell(5, 5)->Value(), "oneall");
    cell(2, 7, 2)->Select();
    EXPECT_EQ(active(), "Two!$G$2");
    EXPECT_EQ(application->Selection()->TypeName(), "Range");
    sheet(1)->Activate();
    EXPECT_EQ(active(), "One!$I$9") << "each sheet keeps its own";
    EXPECT_EQ(errorOf([&] { cell(1, 1, 3)->Select(); }).number(), kApplicationDefined);
    EXPECT_EQ(active(), "One!$I$9");
    EXPECT_EQ(errorOf([&] { sheet(4); }).number(), kSubscriptOutOfRange);
    EXPECT_EQ(workbook->Worksheets()->Item("tWO")->Name(), "Two");
}

TEST_P(OfficeCells, ComeUpActiveAsTheFileSays) {
    const std::string view =
        "<sheetViews><sheetView workbookViewId=\"0\"><selection activeCell=\"D7\" sqref=\"D7\"/>"
        "</sheetView></sheetViews><sheetData/>";
    open(workbookFile({{"One", view}, {"Two", view}}, "",
                      "<bookViews><workbookView activeTab=\"1\"/></bookViews>"));
    EXPECT_EQ(active(), "Two!$D$7");
    sheet(1)->Activate();
    EXPECT_EQ(active(), "One!$D$7");
}

TEST_P(OfficeCells, IntersectWithinOneSheet) {
    open(workbookFile({{"One"}, {"Two"}}));
    const excel::RangePtr block = cell(2, 2)->Resize(3, 3);
    const auto common = application->Intersect(*block, *cell(4, 1)->Resize(5, 2));
    ASSERT_TRUE(common);
    EXPECT_EQ(common->AddressLocal(), "$B$4");
    EXPECT_FALSE(application->Intersect(*block, *cell(5, 2)));
    EXPECT_FALSE(application->Intersect(*block, *cell(2, 2, 2)));
}

TEST_P(OfficeCells, AreNotWrittenWhereExcelWouldNotLetOne) {
    const std::string array =
        "<sheetData><row r=\"1\"><c r=\"A1\"><f t=\"array\" ref=\"A1:A2\">B1:B2</f><v>1</v></c></row>"
        "<row r=\"2\"><c r=\"A2\"><v>1</v></c></row></sheetData>";
    open(workbookFile(
        {{"Shut", "<sheetData/><sheetProtection sheet=\"1\" objects=\"1\"/>"}, {"Array", array}}));
    putPicture("letterhead.png");
    const std::vector<std::function<void()>> refused{
        [&] { cell(1, 1)->SetValue("x"); },
        [&] { cell(1, 1)->SetRowHeight({30}); },
        [&] { cell(1, 1)->SetColumnWidth({30}); },
        [&] { cell(1, 1)->Columns()->AutoFit(); },
        [&] { sheet()->Pictures()->Insert("/letterhead.png"); },
    };
    for (std::size_t index = 0; index < refused.size(); ++index) {
        EXPECT_EQ(errorOf(refused[index]).number(), kApplicationDefined) << index;
        EXPECT_THAT(errorOf(refused[index]).description(), HasSubstr("protected")) << index;
    }
    EXPECT_THAT(errorOf([&] { cell(2, 1, 2)->SetValue("x"); }).description(), HasSubstr("array formula"));
    EXPECT_THAT(errorOf([&] { cell(1, 1, 2)->SetRowHeight({409.6}); }).description(), HasSubstr("height"));
    EXPECT_THAT(errorOf([&] { cell(1, 1, 2)->SetColumnWidth({255.1}); }).description(), HasSubstr("width"));
    EXPECT_TRUE(workbook->Saved());
    EXPECT_EQ(cell(1, 1)->Value() + cell(3, 1, 2)->Value(), "");
    EXPECT_EQ(sheet()->Shapes()->Count(), 0);
    cell(3, 1, 2)->SetValue("beside the array");
    EXPECT_FALSE(workbook->Saved());
}

}  // namespace
}  // namespace mergeloom
