#include "office/embedded/sheet/SharedFormula.h"

#include <gtest/gtest.h>

#include <ostream>

namespace mergeloom::embedded {
namespace {

struct ShiftCase {
    const char* formula;
    int rows;
    int columns;
    const char* shifted;
    bool leftSheet = false;
};

void PrintTo(const ShiftCase& item, std::ostream* out) {
    *out << item.formula << " by " << item.rows << ", " << item.columns;
}

class ShiftFormulaTest : public ::testing::TestWithParam<ShiftCase> {};

TEST_P(ShiftFormulaTest, MovesRelativeReferencesOnly) {
    const ShiftedFormula shifted = shiftFormula(GetParam().formula, GetParam().rows, GetParam().columns);
    EXPECT_EQ(shifted.text, GetParam().shifted);
    EXPECT_EQ(shifted.leftSheet, GetParam().leftSheet);
}

INSTANTIATE_TEST_SUITE_P(
    References, ShiftFormulaTest,
    ::testing::Values(ShiftCase{"B1+1", 1, 0, "B2+1"}, ShiftCase{"A1*$A1*A$1*$A$1", 2, 3, "D3*$A3*D$1*$A$1"},
                      ShiftCase{"SUM(A1:B$2,$C3)", 1, 1, "SUM(B2:C$2,$C4)"},
                      ShiftCase{"SUM(A:$B)+SUM(1:$2)", 1, 1, "SUM(B:$B)+SUM(2:$2)"},
                      ShiftCase{"Z9-AZ9-ZZ9", 1, 1, "AA10-BA10-AAA10"}, ShiftCase{"-A1%^B1", 1, 0, "-A2%^B2"},
                      ShiftCase{"A1 B1", 1, 0, "A2 B2"},
                      ShiftCase{"A1:INDEX(B1:B3,1)", 1, 0, "A2:INDEX(B2:B4,1)"},
                      ShiftCase{"@A1+A1#", 1, 0, "@A2+A2#"}, ShiftCase{"A3+B3", -2, -0, "A1+B1"}));

INSTANTIATE_TEST_SUITE_P(OtherSheets, ShiftFormulaTest,
                         ::testing::Values(ShiftCase{"Sheet1!A1+Data.A1!B2", 1, 0, "Sheet1!A2+Data.A1!B3"},
                                           ShiftCase{"'A1 ''B2'' C3'!A1", 1, 1, "'A1 ''B2'' C3'!B2"},
                                           ShiftCase{"[1]Sheet1!A1+'[Book A1.xlsx]X'!A1", 1, 0,
                                                     "[1]Sheet1!A2+'[Book A1.xlsx]X'!A2"},
                                           ShiftCase{"SUM(One:Three!A1)", 1, 0, "SUM(One:Three!A2)"},
                                           ShiftCase{"Sheet1!A1:Sheet1!B2", 1, 0, "Sheet1!A2:Sheet1!B3"},
                                           ShiftCase{"#REF!A1+1", 1, 0, "#REF!A2+1"}));

INSTANTIATE_TEST_SUITE_P(
    LeftAlone, ShiftFormulaTest,
    ::testing::Values(
        ShiftCase{"\"A1 \"\"B1\"\" 'C1\"&A1", 1, 0, "\"A1 \"\"B1\"\" 'C1\"&A2"},
        ShiftCase{"LOG10(A1)+ATAN2(A1,1)+_xlfn.T1(A1)", 1, 0, "LOG10(A2)+ATAN2(A2,1)+_xlfn.T1(A2)"},
        ShiftCase{"Tax2026X+Tax.A1+_A1+\\A1+TRUE", 1, 1, "Tax2026X+Tax.A1+_A1+\\A1+TRUE"},
        ShiftCase{"1E5+1.5E+3+12", 1, 1, "1E5+1.5E+3+12"},
        ShiftCase{"T1[A1]+Sales[[#This Row],[B2]:[C3]]+A1", 1, 0, "T1[A1]+Sales[[#This Row],[B2]:[C3]]+A2"},
        ShiftCase{"Sales[a']A1]+A1", 1, 0, "Sales[a']A1]+A2"},
        ShiftCase{"IF(A1=#N/A,#DIV/0!,#NAME?)", 1, 0, "IF(A2=#N/A,#DIV/0!,#NAME?)"},
        ShiftCase{"{1,2;3,4}", 1, 1, "{1,2;3,4}"},
        ShiftCase{"XFE1+ABCD1+A1048577+A0", 1, 0, "XFE1+ABCD1+A1048577+A0"},
        ShiftCase{"Größe1+A1", 1, 0, "Größe1+A2"}, ShiftCase{"", 1, 1, ""},
        ShiftCase{"\"open", 1, 1, "\"open"}, ShiftCase{"'open", 1, 1, "'open"},
        ShiftCase{"[open", 1, 1, "[open"}, ShiftCase{"$", 1, 1, "$"}, ShiftCase{"$A$", 1, 1, "$A$"}));

INSTANTIATE_TEST_SUITE_P(BeyondTheSheet, ShiftFormulaTest,
                         ::testing::Values(ShiftCase{"A1+B1", -1, 0, "#REF!+#REF!", true},
                                           ShiftCase{"A1+B1", 0, -1, "#REF!+A1", true},
                                           ShiftCase{"XFD1048576", 0, 0, "XFD1048576"},
                                           ShiftCase{"XFD1048576", 1, 0, "#REF!", true},
                                           ShiftCase{"$XFD$1048576", 1, 1, "$XFD$1048576"},
                                           ShiftCase{"SUM(Sheet1!A1:B2)", 0, -1, "SUM(Sheet1!#REF!)", true},
                                           ShiftCase{"SUM(XFD:XFD)", 0, 1, "SUM(#REF!)", true},
                                           ShiftCase{"#REF!+A1", 1, 0, "#REF!+A2"}));

}  // namespace
}  // namespace mergeloom::embedded
