#include "office/embedded/sheet/MovableFormula.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

using embedded::FormulaPlace;
using embedded::MovableFormula;
using embedded::RowMap;

/// Formulas of a book in which rows 5 and 6 of the first of two sheets, columns B to D, exist three times.
/// Two more rows were there before. The second sheet, 'It''s', is unchanged.
class MovedFormula : public testing::Test {
  protected:
    MovedFormula() {
        maps.resize(2);
        maps.front().add({.first = 5, .last = 6, .end = 8, .firstColumn = 2, .lastColumn = 4});
        maps.front().setCopies(0, 3);
    }

    [[nodiscard]] static std::optional<std::size_t> sheetNamed(const std::string& name) {
        if (name == "Lines") return 0;
        return name == "It's" ? std::optional<std::size_t>(1) : std::nullopt;
    }
    [[nodiscard]] std::string moved(const std::string& formula, const FormulaPlace& place = {}) const {
        return MovableFormula(formula, place.sheet, sheetNamed).text(maps, place);
    }

    std::vector<RowMap> maps;
};

TEST_F(MovedFormula, RefersToTheSameCellsAsBefore) {
    struct Case {
        std::string formula;
        std::string moved;
    };
    for (const Case& each : std::vector<Case>{
             {"A4+A9", "A4+A11"},
             {"$A$9*B$10", "$A$11*B$12"},
             {"B5+B6", "B5+B6"},
             {"B7", "#REF!"},
             {"SUM(B5:D6)", "SUM(B5:D10)"},
             {"SUM(B5:D8)", "SUM(B5:D10)"},
             {"SUM(B4:B9)", "SUM(B4:B11)"},
             {"SUM(F5:F6)", "SUM(F5:F6)"},
             {"SUM(B:B)+SUM(9:9)", "SUM(B:B)+SUM(11:11)"},
             {"SUM(5:6)", "SUM(5:10)"},
             {"Lines!B9+'Lines'!B9", "Lines!B11+'Lines'!B11"},
             {"'It''s'!B9", "'It''s'!B9"},
             {"[1]Lines!B9+'[1]Lines'!B9+Lines:Other!B9+Other!B9",
              "[1]Lines!B9+'[1]Lines'!B9+Lines:Other!B9+Other!B9"},
             {"\"B9\"&Table1[B9]&LOG10(2)&B9x", "\"B9\"&Table1[B9]&LOG10(2)&B9x"},
             {"IF(B9=\"it's\",B9,0)", "IF(B11=\"it's\",B11,0)"},
             {"B1048576+SUM(B9:B1048576)+SUM(B9:B1048575)", "#REF!+SUM(B11:B1048576)+SUM(B11:B1048576)"},
         }) {
        EXPECT_EQ(moved(each.formula), each.moved);
    }
}

TEST_F(MovedFormula, InARepetitionRefersToItsOwnRows) {
    struct Case {
        std::string formula;
        std::string moved;
    };
    const FormulaPlace third{.sheet = 0, .group = 0, .copy = 2};
    for (const Case& each : std::vector<Case>{{"B5*C6", "B9*C10"},
                                              {"B$5*$C6", "B$5*$C10"},
                                              {"B4+B5", "B8+B9"},
                                              {"SUM(B5:C6)", "SUM(B9:C10)"},
                                              {"B5/SUM(B$5:B$6)", "B9/SUM(B$5:B$10)"},
                                              {"B5*$B$9", "B9*$B$11"},
                                              {"'It''s'!B5*'It''s'!B$5", "'It''s'!B9*'It''s'!B$5"}}) {
        EXPECT_EQ(moved(each.formula, third), each.moved);
    }
}

TEST_F(MovedFormula, OfOneRowThatIsSummedTakesInAllRepetitions) {
    maps.front() = {};
    maps.front().add({.first = 5, .last = 5, .end = 5, .firstColumn = 2, .lastColumn = 4});
    maps.front().setCopies(0, 3);
    const FormulaPlace other{.sheet = 1};
    for (const auto& [formula, result] : std::vector<std::pair<std::string, std::string>>{
             {"SUM(B5)", "SUM(B5:B7)"},
             {"sum( B$5 , C5)", "sum( B$5:B$7 , C5:C7)"},
             {"SUM(B5*2)+MAX(F5)", "SUM(B5*2)+MAX(F5)"},
             {"SUM(ABS(B5),B5)", "SUM(ABS(B5),B5:B7)"},
         }) {
        EXPECT_EQ(moved(formula), result);
    }
    EXPECT_EQ(moved("SUM(Lines!B5)+B5", other), "SUM(Lines!B5:B7)+B5");
    EXPECT_EQ(moved("SUM('Lines'!B5)", other), "SUM('Lines'!B5:B7)");
}

TEST_F(MovedFormula, IsTornIfItSumsSomeRowsOfABlock) {
    struct Case {
        std::string formula;
        FormulaPlace place;
        bool isTorn;
    };
    const FormulaPlace inside{.sheet = 0, .group = 0};
    for (const Case& each : std::vector<Case>{{"SUM(B5:D5)", {}, true},
                                              {"SUM(B4:B5)", {}, true},
                                              {"SUM(B5)", {}, true},
                                              {"B5", {}, false},
                                              {"SUM(B5:B6)", {}, false},
                                              {"SUM(F5)", {}, false},
                                              {"SUM(B5:D5)", inside, false},
                                              {"SUM(B$5:D$5)", inside, true}}) {
        const MovableFormula formula(each.formula, 0, sheetNamed);
        EXPECT_EQ(formula.isTornBy(maps, each.place), each.isTorn) << each.formula;
    }
}

}  // namespace
}  // namespace mergeloom
