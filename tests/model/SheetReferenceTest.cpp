#include "office/model/excel/SheetReference.h"

#include <gtest/gtest.h>

namespace mergeloom::excel {
namespace {

TEST(SheetReference, IsReadFromOneBlockOfCells) {
    const struct {
        std::string_view formula, sheet, area;
    } cases[] = {
        {"Sheet1!$A$1", "Sheet1", "$A$1"},
        {"Sheet1!$B$4:$A$1", "Sheet1", "$A$1:$B$4"},
        {"Sheet1!b3:D4", "Sheet1", "$B$3:$D$4"},
        {"$C$3", "", "$C$3"},
        {"'Year ''26'!$A$1", "Year '26", "$A$1"},
        {"'Sheet1'!$A:$B", "Sheet1", "$A:$B"},
        {"'a!b'!$2:$3", "a!b", "$2:$3"},
        {"Größe!$XFD$1048576", "Größe", "$XFD$1048576"},
        {"売上!$A$1", "売上", "$A$1"},
        {"2026!$A$1", "2026", "$A$1"},
    };
    for (const auto& [formula, sheet, area] : cases) {
        const std::optional<SheetReference> reference = parseReference(formula);
        ASSERT_TRUE(reference) << formula;
        EXPECT_EQ(reference->sheetName, sheet);
        EXPECT_EQ(absoluteAddressOf(reference->area), area);
    }
}

TEST(SheetReference, IsNothingForAnyOtherFormula) {
    for (const char* formula : {"",
                                "#REF!",
                                "Sheet1!#REF!",
                                "#REF!$A$1",
                                "[1]Sheet1!$A$1",
                                "'[Book.xlsx]Sheet1'!$A$1",
                                "'C:\\Books\\[Book.xlsx]A'!$A$1",
                                "[1]!Name",
                                "Sheet1:Sheet3!A1",
                                "'Sheet 1:Sheet 3'!A1",
                                "A1,B1",
                                "Sheet1!$A$1,Sheet1!$B$1",
                                "OFFSET(Sheet1!$A$1,0,0)",
                                "Sheet1!$A$1+1",
                                "-Sheet1!$A$1",
                                "Sheet1!A1:B2 B2",
                                "42",
                                "\"text\"",
                                "TRUE",
                                "Name",
                                "Table1[Column]",
                                "!$A$1",
                                "''!$A$1",
                                "'Sheet1!$A$1",
                                "'Sheet1'$A$1",
                                "'Sheet1'",
                                "'",
                                "Sheet 1!$A$1",
                                "Sheet1!",
                                "Sheet1!$XFE$1",
                                "Sheet1!$A$1048577",
                                "{1,2}",
                                "Sheet1!R1C1"}) {
        EXPECT_FALSE(parseReference(formula)) << formula;
    }
}

TEST(SheetReference, IsWrittenWithQuotesWhereFormulasNeedThem) {
    const struct {
        std::string sheet, text;
    } cases[] = {
        {"", "$A$1"},
        {"Sheet1", "Sheet1!$A$1"},
        {"a_b.c", "a_b.c!$A$1"},
        {"Größe", "Größe!$A$1"},
        {"Year '26", "'Year ''26'!$A$1"},
        {"a-b", "'a-b'!$A$1"},
        {"2026", "'2026'!$A$1"},
        {"A1", "'A1'!$A$1"},
        {"xfd1", "'xfd1'!$A$1"},
        {"XFE1", "XFE1!$A$1"},
        {"R1C1", "'R1C1'!$A$1"},
        {"rc", "'rc'!$A$1"},
        {"C", "'C'!$A$1"},
        {"True", "'True'!$A$1"},
        {".net", "'.net'!$A$1"},
        {"a,b", "'a,b'!$A$1"},
    };
    for (const auto& [sheet, text] : cases) {
        EXPECT_EQ(referenceText({sheet, {}}), text);
        const std::optional<SheetReference> again = parseReference(text);
        ASSERT_TRUE(again) << text;
        EXPECT_EQ(again->sheetName, sheet);
    }
}

}  // namespace
}  // namespace mergeloom::excel
