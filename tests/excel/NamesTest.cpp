#include "excel/WorkbookTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom {
namespace {

using testing::HasSubstr;

const std::string kNames =
    "<definedNames><definedName name=\"Total\">'Year ''26'!$B$2:$C$3</definedName>"
    "<definedName name=\"Local\" localSheetId=\"1\">'Year ''26'!$A$1</definedName>"
    "<definedName name=\"Secret\" hidden=\"1\">Plain!$A$1</definedName>"
    "<definedName name=\"Rate\">0.19</definedName><definedName name=\"Gone\">#REF!</definedName>"
    "<definedName name=\"GoneCell\">Plain!#REF!</definedName>"
    "<definedName name=\"Other\">[1]Plain!$A$1</definedName>"
    "<definedName name=\"Lost\">Nowhere!$A$1</definedName>"
    "<definedName name=\"Two\">Plain!$A$1,Plain!$B$2</definedName>"
    "<definedName name=\"Chart\">Picture!$A$1</definedName>"
    "<definedName name=\"Moving\">OFFSET(Plain!$A$1,1,1)</definedName></definedNames>";

std::string namedWorkbook() {
    return workbookFile({{"Plain"}, {"Year '26"}, {"Picture", "", "", "chartsheet"}}, kNames);
}

TEST(Names, tellWhichCellsTheyStandFor) {
    const OpenWorkbook book{namedWorkbook()};
    const excel::NamesPtr names = book.workbook->Names();
    EXPECT_EQ(names->Count(), 11);
    const excel::RangePtr total = names->Item("TOTAL")->RefersToRange();
    EXPECT_EQ(total->AddressLocal(), "$B$2:$C$3");
    EXPECT_EQ(total->Worksheet()->Name(), "Year '26");
    EXPECT_EQ(names->Item("Year '26!local")->Name(), "Year '26!Local");
    EXPECT_FALSE(names->Item("secret")->Visible());
    for (const std::string name : {"Rate", "Gone", "GoneCell", "Other", "Lost", "Two", "Chart", "Moving"}) {
        EXPECT_TRUE(names->Exists(name)) << name;
        EXPECT_EQ(errorOf([&] { names->Item(name)->RefersToRange(); }),
                  "The name '" + name + "' does not stand for cells.");
    }
    for (const std::string name : {"Nothing", "Local", "Plain!Local", "Nowhere!Local"}) {
        EXPECT_FALSE(names->Exists(name)) << name;
        EXPECT_THAT(errorOf([&] { names->Item(name); }), HasSubstr(name));
    }
}

TEST(Names, areAddedForTheActiveSheet) {
    OpenWorkbook book{namedWorkbook()};
    const excel::NamesPtr names = book.workbook->Names();
    book.cell(1, 1, 2)->Select();
    EXPECT_EQ(names->Add("ammOrderDate", "=$B$3")->RefersToLocal(), "='Year ''26'!$B$3");
    EXPECT_EQ(names->Add("local", "=Plain!$A$5")->Name(), "local");
    EXPECT_EQ(names->Item("Year '26!Local")->RefersToRange()->AddressLocal(), "$A$1");
    names->Item("TOTAL")->SetRefersToLocal("=$D$4:$E$9");
    names->Add("Secret", "=$A$2");
    const std::string saved = book.savedPart(kWorkbookPart);
    EXPECT_THAT(saved, HasSubstr("<definedName name=\"ammOrderDate\">'Year ''26'!$B$3</definedName>"));
    EXPECT_THAT(saved, HasSubstr("<definedName name=\"Total\">'Year ''26'!$D$4:$E$9</definedName>"));
    EXPECT_THAT(saved, HasSubstr("<definedName name=\"Secret\" hidden=\"1\">'Year ''26'!$A$2</definedName>"));
    EXPECT_THAT(saved, HasSubstr("<definedName name=\"Moving\">OFFSET(Plain!$A$1,1,1)</definedName>"));
}

TEST(Names, refuseWhatExcelWouldCallDamaged) {
    OpenWorkbook book;
    for (const std::string name : {"", "1st", "a b", "amm1", "AMM2024", "xfd1", "R1C1", "r", "C", "a-b"}) {
        EXPECT_NE(errorOf([&] { book.workbook->Names()->Add(name, "=$A$1"); }), "no error") << name;
    }
    EXPECT_NE(errorOf([&] { book.workbook->Names()->Add(std::string(256, 'a'), "=$A$1"); }), "no error");
    EXPECT_NE(errorOf([&] { book.workbook->Names()->Add("good", "$A$1"); }), "no error");
    EXPECT_EQ(book.workbook->Names()->Count(), 0);
    EXPECT_TRUE(book.workbook->Saved());
}

TEST(Names, keepClearOfTheNamesOfTables) {
    opc::Package package = workbookPackage({{"One"}});
    for (const std::string name : {"ammOrders", "AMMORDERS_REF1"}) {
        const std::string part = "/xl/tables/" + name + ".xml";
        package.addPart(
            part, kSpreadsheetType + "table+xml",
            "<table xmlns=\"" + kSpreadsheet + "\" id=\"1\" displayName=\"" + name + "\" ref=\"D1:D2\"/>");
        package.relationshipsOf(sheetPart(1)).addPart(officeType("table"), part);
    }
    const OpenWorkbook book{packageBytes(package)};
    const excel::NamesPtr names = book.workbook->Names();
    EXPECT_TRUE(names->Exists("ammorders"));
    EXPECT_EQ(names->firstFreeCounter("ammOrders_ref"), 2);
    EXPECT_THAT(errorOf([&] { names->Add("AmmOrders", "=$A$1"); }), HasSubstr("table"));
    EXPECT_EQ(names->Count(), 0);
}

TEST(Names, countOnFromTheFirstFreeOne) {
    OpenWorkbook book;
    const excel::NamesPtr names = book.workbook->Names();
    for (const std::string name : {"ammA_ref1", "AMMA_REF2", "ammA_ref4"})
        names->Add(name, "=$A$1");
    EXPECT_EQ(names->firstFreeCounter("amma_ref"), 3);
    names->Add("ammA_ref3", "=$A$1");
    EXPECT_EQ(names->firstFreeCounter("ammA_ref"), 5);
    EXPECT_EQ(names->firstFreeCounter("ammB_ref"), 1);
}

}  // namespace
}  // namespace mergeloom
