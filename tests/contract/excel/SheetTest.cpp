#include "contract/excel/OfficeTest.h"

namespace mergeloom {
namespace {

/// The tolerance in points. Calc stores twips and hundredths of a millimetre.
constexpr double kNear = 0.1;

class OfficeSheet : public OfficeTest {};

INSTANTIATE_TEST_SUITE_P(Offices, OfficeSheet, testing::ValuesIn(kContractOffices), nameOfOffice);

TEST_P(OfficeSheet, HasTheSizesOfExcelsNewWorkbook) {
    add();
    EXPECT_EQ(sheet()->Name(), "Sheet1");
    EXPECT_EQ(workbook->Worksheets()->Count(), 1);
    EXPECT_NEAR(cell(1, 1)->ColumnWidth().value, 8.43, 0.01);
    // A row without a height of its own is as high as the office's fonts.
    EXPECT_NEAR(cell(1, 1)->RowHeight().value, 15, 1.5);
    EXPECT_NEAR(cell(1, 1)->Width().value, 48, kNear);
    EXPECT_NEAR(cell(3, 5)->Left().value, 4 * 48.0, kNear);
}

TEST_P(OfficeSheet, FindsCellsByAddressAndTheUsedOnes) {
    add();
    EXPECT_EQ(sheet()->UsedRange()->AddressLocal(), "$A$1");
    for (const char* address : {"C5", "$C$5", "c$5"})
        EXPECT_EQ(sheet()->Range(address)->AddressLocal(), "$C$5") << address;
    EXPECT_EQ(sheet()->Range("XFD1048576")->Column(), 16384);
    for (const char* address : {"", "C", "5", "XFE1", "A1048577", "A0", "A-1", "Name", "$$A1", "A1 "})
        EXPECT_EQ(errorOf([&] { sheet()->Range(address); }).number(), kApplicationDefined) << address;
    open(workbookFile({{"Data", "<sheetData><row r='2'><c r='B2'><v>7</v></c></row></sheetData>"}}));
    EXPECT_EQ(sheet()->UsedRange()->AddressLocal(), "$B$2");
    cell(5, 4)->SetValue("x");
    EXPECT_EQ(sheet()->UsedRange()->AddressLocal(), "$B$2:$D$5");
}

TEST_P(OfficeSheet, SizesAreRoundedToPixelsAndSaved) {
    add();
    cell(2, 2)->SetColumnWidth({20.1});
    cell(2, 2)->SetRowHeight({33.3});
    cell(4, 4)->SetColumnWidth({0});
    cell(5, 5)->SetColumnWidth({255});
    cell(5, 5)->SetRowHeight({409.5});
    const excel::WorksheetPtr saved = reopened()->Worksheets()->Item(1);
    for (const excel::WorksheetPtr& found : {sheet(), saved}) {
        EXPECT_NEAR(found->Cells(2, 2)->ColumnWidth().value, 20.14, 0.01);
        EXPECT_NEAR(found->Cells(2, 2)->RowHeight().value, 33, kNear);
        EXPECT_NEAR(found->Cells(3, 3)->Left().value, 48 + 109.5, kNear);
        EXPECT_NEAR(found->Cells(3, 3)->Top().value, 48, 1.5);
        EXPECT_NEAR(found->Cells(1, 4)->Width().value, 0, kNear);
        EXPECT_NEAR(found->Cells(2, 2)->Resize(2, 2)->Width().value, 109.5 + 48, kNear);
        EXPECT_NEAR(found->Cells(2, 2)->Resize(2, 2)->Height().value, 48, 1.5);
        EXPECT_NEAR(found->Cells(5, 5)->ColumnWidth().value, 255, 0.01);
        EXPECT_NEAR(found->Cells(5, 5)->RowHeight().value, 409.5, kNear);
    }
    cell(4, 4)->SetColumnWidth({8.43});
    EXPECT_NEAR(cell(4, 4)->Width().value, 48, kNear) << "a hidden column shows again";
}

TEST_P(OfficeSheet, ColumnsGrowWithTheTextsOfTheRange) {
    add();
    cell(1, 1)->SetValue("a");
    cell(2, 1)->SetValue("a text that needs much more room than that");
    cell(1, 2)->SetValue("a");
    cell(3, 1)->SetValue(std::string(200, 'W'));
    cell(1, 1)->Resize(2, 3)->Columns()->AutoFit();
    EXPECT_NEAR(cell(1, 1)->ColumnWidth().value, 38, 2);
    EXPECT_NEAR(cell(1, 2)->ColumnWidth().value, 1, 0.25);
    EXPECT_NEAR(cell(1, 3)->ColumnWidth().value, 8.43, 0.01);
    cell(3, 1)->Columns()->AutoFit();
    EXPECT_NEAR(cell(1, 1)->ColumnWidth().value, 255, 0.01);
}

TEST_P(OfficeSheet, PicturesStandWhereTheyArePut) {
    add();
    putPicture("letterhead.png");
    putPicture("cleat.jpg");
    files.files["/no.png"] = "this is no picture";
    cell(3, 2)->Select();
    const AutomationError error = errorOf([&] { sheet()->Pictures()->Insert("/no.png"); });
    EXPECT_EQ(error.number(), kFileCouldNotBeRead);
    EXPECT_THAT(error.description(), testing::HasSubstr("/no.png"));
    EXPECT_EQ(sheet()->Shapes()->Count(), 0);

    const excel::PicturePtr natural = sheet()->Pictures()->Insert("/cleat.jpg");
    EXPECT_NEAR(natural->Width().value, 150, kNear);
    EXPECT_NEAR(natural->Height().value, 112.5, kNear);
    const excel::PicturePtr picture = sheet()->Pictures()->Insert("/letterhead.png");
    picture->SetName("ammLogo");
    EXPECT_NEAR(picture->Width().value, 172.8, kNear) << "150 dots per inch, as the file says";
    EXPECT_NEAR(picture->Left().value, cell(3, 2)->Left().value, kNear);
    EXPECT_NEAR(picture->Top().value, cell(3, 2)->Top().value, kNear);
    picture->SetWidth({120});
    picture->SetHeight({60});
    picture->SetLeft({100});
    EXPECT_NEAR(picture->Width().value, 120, kNear);
    EXPECT_NEAR(picture->Height().value, 60, kNear);
    EXPECT_NEAR(picture->Left().value, 100, kNear);
    EXPECT_EQ(sheet()->Shapes()->Item("AMMLOGO")->TopLeftCell()->AddressLocal(), "$C$3");
    cell(1, 1)->SetColumnWidth({20});
    const excel::WorkbookPtr copy = reopened();
    // Calc stores the end of a picture in its own units, and the height of its rows depends on its fonts.
    constexpr double kInFile = 2;
    for (const excel::WorksheetPtr& found : {sheet(), copy->Worksheets()->Item(1)}) {
        ASSERT_EQ(found->Shapes()->Count(), 2);
        const excel::ShapePtr shape = found->Shapes()->Item("AMMLOGO");
        EXPECT_EQ(shape->Name(), "ammLogo");
        EXPECT_EQ(shape->Type(), excel::MsoShapeType::msoPicture);
        EXPECT_NEAR(shape->Width().value, 120, kInFile);
        EXPECT_NEAR(shape->Height().value, 60, kInFile);
        EXPECT_NEAR(shape->Left().value, 100 + 60.75, kInFile) << "it moves with its cells";
        EXPECT_EQ(shape->TopLeftCell()->AddressLocal(), "$C$3");
    }
    sheet()->Shapes()->Item("ammLogo")->Delete();
    EXPECT_EQ(errorOf([&] { picture->Width(); }).number(), kObjectDeleted);
    EXPECT_EQ(errorOf([&] { sheet()->Shapes()->Item("ammLogo"); }).number(), kApplicationDefined);
    EXPECT_EQ(reopened()->Worksheets()->Item(1)->Shapes()->Count(), 1);
}

}  // namespace
}  // namespace mergeloom
