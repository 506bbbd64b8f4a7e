#include "excel/WorkbookTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom {
namespace {

using testing::HasSubstr;

const std::string kMerged = "<sheetData/><mergeCells count=\"1\"><mergeCell ref=\"B2:C4\"/></mergeCells>";

TEST(Range, leadsToOtherCellsOfItsSheetOnly) {
    const OpenWorkbook book;
    const excel::RangePtr start = book.cell(2, 3);
    EXPECT_EQ(start->AddressLocal(), "$C$2");
    EXPECT_EQ(start->Offset(2, -1)->AddressLocal(), "$B$4");
    EXPECT_EQ(start->Resize(2, 3)->AddressLocal(), "$C$2:$E$3");
    EXPECT_EQ(start->Resize(2, 3)->Offset(1, 1)->AddressLocal(), "$D$3:$F$4");
    EXPECT_EQ(start->Resize(2, 3)->Cells(2, 2)->AddressLocal(), "$D$3");
    EXPECT_EQ(book.cell(1, 1)->Resize(1048576, 1)->AddressLocal(), "$A:$A");
    EXPECT_EQ(book.cell(1048576, 16384)->AddressLocal(), "$XFD$1048576");
    const std::vector<std::function<void()>> outside{
        [&] { start->Offset(-2, 0); },         [&] { start->Offset(0, -3); },
        [&] { start->Resize(0, 1); },          [&] { start->Resize(1048576, 1); },
        [&] { book.cell(1048577, 1); },        [&] { book.cell(1, 16385); },
        [&] { start->Offset(2147483647, 0); }, [&] { start->Cells(1, -2147483647); },
    };
    for (std::size_t index = 0; index < outside.size(); ++index)
        EXPECT_EQ(errorOf(outside[index]), "The sheet has no such cells.") << index;
}

TEST(Range, intersectsWithRangesOfItsSheet) {
    const OpenWorkbook book{workbookFile({{"One"}, {"Two"}})};
    const excel::RangePtr block = book.cell(2, 2)->Resize(3, 3);
    const auto common = book.application->Intersect(*block, *book.cell(4, 1)->Resize(5, 2));
    ASSERT_TRUE(common);
    EXPECT_EQ(common->AddressLocal(), "$B$4");
    EXPECT_FALSE(book.application->Intersect(*block, *book.cell(5, 2)));
    EXPECT_FALSE(book.application->Intersect(*block, *book.cell(2, 2, 2)));
}

TEST(Range, showsWhatItsFirstCellHolds) {
    const std::string cells =
        "<sheetData><row r=\"1\"><c r=\"A1\" t=\"s\"><v>1</v></c><c r=\"B1\"><v>2.5</v></c>"
        "<c r=\"C1\" t=\"b\"><v>1</v></c><c r=\"D1\" t=\"inlineStr\"><is><t>in</t></is></c>"
        "<c r=\"E1\" t=\"str\"><f>\"a\"&amp;\"b\"</f><v>ab</v></c><c r=\"F1\" t=\"e\"><v>#N/A</v></c>"
        "<c r=\"G1\" t=\"s\"><v>9</v></c><c r=\"H1\" t=\"s\"><v>x</v></c></row></sheetData>";
    opc::Package package = workbookPackage({{"One", cells}});
    package.addPart("/xl/sharedStrings.xml", kSpreadsheetType + "sharedStrings+xml",
                    "<sst xmlns=\"" + kSpreadsheet + "\"><si><t>first</t></si><si><t>second</t></si></sst>");
    package.relationshipsOf(kWorkbookPart).addPart(officeType("sharedStrings"), "/xl/sharedStrings.xml");
    const OpenWorkbook book{packageBytes(package)};
    const std::vector<std::string> shown{"second", "2.5", "TRUE", "in", "ab", "#N/A"};
    for (int column = 1; column <= 6; ++column)
        EXPECT_EQ(book.cell(1, column)->Value(), shown[static_cast<std::size_t>(column) - 1]) << column;
    EXPECT_EQ(book.cell(2, 1)->Value(), "");
    for (const int column : {7, 8}) {
        EXPECT_THAT(errorOf([&] { book.cell(1, column)->Value(); }), HasSubstr("/book.xlsx")) << column;
    }
}

TEST(Range, takesTextsAsTexts) {
    OpenWorkbook book;
    for (const std::string text : {"2024", "1/2", "=A1", "TRUE", " two  blanks ", "<&>\"'", "a\nb", ""}) {
        book.cell(3, 2)->SetValue(text);
        EXPECT_EQ(book.cell(3, 2)->Value(), text);
        book.workbook->SaveAs("/saved.xlsx", excel::XlFileFormat::xlOpenXMLWorkbook);
        const OpenWorkbook again{book.files.files["/saved.xlsx"]};
        EXPECT_EQ(again.cell(3, 2)->Value(), text);
    }
    EXPECT_THAT(errorOf([&] { book.cell(1, 1)->SetValue(std::string(32768, 'x')); }), HasSubstr("length"));
}

TEST(Range, activatesAsExcelDoes) {
    struct Case {
        const char* selected;
        int row, column;
        const char* activeCell;
        const char* sqref;
    };
    const std::vector<Case> cases{
        {"A1", 7, 4, "D7", "D7"},
        {"A1:D8", 7, 4, "D7", "A1:D8"},  // a cell of the selection only becomes the active one
        {"A1:B2 D7:D8", 8, 4, "D8", "A1:B2 D7:D8"},
        {"A1", 3, 3, "B2", "B2:C4"},  // merged cells are one
        {"B2:C4", 4, 2, "B2", "B2:C4"},
    };
    for (const Case& test : cases) {
        const std::string views =
            "<sheetViews><sheetView workbookViewId=\"0\"><selection activeCell=\"A1\" sqref=\"" +
            std::string(test.selected) + "\"/></sheetView></sheetViews>";
        OpenWorkbook book{workbookFile({{"One", views + kMerged}})};
        book.cell(test.row, test.column)->Activate();
        const std::string saved = book.savedPart(sheetPart(1));
        EXPECT_THAT(saved, HasSubstr("activeCell=\"" + std::string(test.activeCell) + "\"")) << test.selected;
        EXPECT_THAT(saved, HasSubstr("sqref=\"" + std::string(test.sqref) + "\"")) << test.selected;
    }
}

TEST(Range, treatsMergedCellsAsTheirFirst) {
    OpenWorkbook book{workbookFile({{"One", kMerged}})};
    EXPECT_EQ(book.cell(4, 3)->MergeArea()->AddressLocal(), "$B$2:$C$4");
    EXPECT_EQ(book.cell(4, 4)->MergeArea()->AddressLocal(), "$D$4");
    EXPECT_TRUE(book.cell(1, 1)->Resize(2, 2)->MergeCells());
    EXPECT_FALSE(book.cell(1, 1)->Resize(1, 5)->MergeCells());
    book.cell(2, 1)->Resize(2, 4)->SetValue("x");
    EXPECT_EQ(book.cell(2, 1)->Value() + book.cell(2, 2)->Value() + book.cell(3, 4)->Value(), "xxx");
    EXPECT_EQ(book.cell(2, 3)->Value() + book.cell(3, 2)->Value(), "");
    book.cell(3, 3)->Activate();
    EXPECT_EQ(book.application->ActiveCell()->AddressLocal(), "$B$2");
}

TEST(Range, selectsInItsOwnSheet) {
    OpenWorkbook book{workbookFile({{"One"}, {"Two"}, {"Three", "", "state=\"hidden\""}})};
    book.cell(5, 5, 2)->Resize(2, 2)->Select();
    EXPECT_EQ(book.application->ActiveCell()->Worksheet()->Name(), "Two");
    EXPECT_EQ(book.application->ActiveCell()->AddressLocal(), "$E$5");
    book.application->Selection()->SetValue2("all");
    EXPECT_EQ(book.cell(6, 6, 2)->Value(), "all");
    EXPECT_THAT(errorOf([&] { book.cell(1, 1, 3)->Select(); }), HasSubstr("hidden"));
    EXPECT_THAT(book.savedPart(kWorkbookPart), HasSubstr("activeTab=\"1\""));
}

TEST(Range, isNotWrittenWhereExcelWouldNotLetOne) {
    const std::string protection = "<sheetProtection sheet=\"1\" objects=\"1\"/>";
    const std::string array =
        "<sheetData><row r=\"1\"><c r=\"A1\"><f t=\"array\" ref=\"A1:A2\">B1:B2</f><v>1</v></c>"
        "</row><row r=\"2\"><c r=\"A2\"><v>1</v></c></row></sheetData>";
    const OpenWorkbook book{
        workbookFile({{"Open"}, {"Shut", "<sheetData/>" + protection}, {"Array", array}})};
    EXPECT_THAT(errorOf([&] { book.cell(1, 1, 2)->SetValue("x"); }), HasSubstr("'Shut' is protected"));
    EXPECT_THAT(errorOf([&] { book.cell(1, 1, 2)->SetRowHeight({30}); }), HasSubstr("protected"));
    EXPECT_THAT(errorOf([&] { book.cell(1, 1, 2)->SetColumnWidth({30}); }), HasSubstr("protected"));
    EXPECT_THAT(errorOf([&] { book.cell(1, 1, 2)->Columns()->AutoFit(); }), HasSubstr("protected"));
    EXPECT_THAT(errorOf([&] { book.cell(2, 1, 3)->SetValue("x"); }), HasSubstr("array formula"));
    EXPECT_THAT(errorOf([&] { book.cell(1, 1)->SetRowHeight({409.6}); }), HasSubstr("height"));
    EXPECT_THAT(errorOf([&] { book.cell(1, 1)->SetColumnWidth({255.1}); }), HasSubstr("width"));
    EXPECT_THAT(errorOf([&] { book.cell(1, 1)->Resize(1048576, 2)->SetValue("x"); }), HasSubstr("too many"));
    EXPECT_TRUE(book.workbook->Saved());
    EXPECT_EQ(book.cell(1, 1, 2)->Value() + book.cell(1, 1)->Value(), "");
}

TEST(Range, writesThroughUnlockedFormatsOfProtectedSheets) {
    opc::Package package = workbookPackage(
        {{"Shut",
          "<sheetData><row r=\"1\"><c r=\"A1\" s=\"1\"/></row></sheetData><sheetProtection sheet=\"1\"/>"}});
    package.addPart("/xl/styles.xml", kSpreadsheetType + "styles+xml",
                    "<styleSheet xmlns=\"" + kSpreadsheet +
                        "\"><cellXfs><xf/><xf applyProtection=\"1\"><protection locked=\"0\"/></xf></cellXfs>"
                        "</styleSheet>");
    package.relationshipsOf(kWorkbookPart).addPart(officeType("styles"), "/xl/styles.xml");
    const OpenWorkbook book{packageBytes(package)};
    book.cell(1, 1)->SetValue("x");
    EXPECT_EQ(book.cell(1, 1)->Value(), "x");
    EXPECT_THAT(errorOf([&] { book.cell(1, 2)->SetValue("x"); }), HasSubstr("protected"));
}

TEST(Columns, growWithTheirTexts) {
    const OpenWorkbook book;
    const double usual = book.cell(1, 3)->ColumnWidth().value;
    book.cell(1, 1)->SetValue("a");
    book.cell(2, 1)->SetValue("a text that needs much more room than that");
    book.cell(1, 2)->SetValue("a");
    book.cell(3, 1)->SetValue(std::string(200, 'W'));
    book.cell(1, 1)->Resize(2, 3)->Columns()->AutoFit();
    EXPECT_GT(book.cell(1, 1)->ColumnWidth().value, 30);
    EXPECT_LT(book.cell(1, 1)->ColumnWidth().value, 50);
    EXPECT_LT(book.cell(1, 2)->ColumnWidth().value, 3);
    EXPECT_EQ(book.cell(1, 3)->ColumnWidth().value, usual);
    EXPECT_NEAR(book.cell(1, 2)->Left().value, book.cell(1, 1)->Width().value, 0.001);
}

}  // namespace
}  // namespace mergeloom
