#include "graft/BookTriple.h"
#include "office/graft/LineShift.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mergeloom::graft {

namespace {

using ::testing::HasSubstr;

TEST(LineShiftTest, MovesAreasAndReferences) {
    struct Case {
        LineShift shift;
        std::string formula;
        std::string expected;
    };
    const LineShift inserted{Axis::Rows, 3, 2};
    const LineShift removed{Axis::Rows, 3, -2};
    const std::vector<Case> cases{
        {inserted, "A2+A3+$A$4", "A2+A5+$A$6"},
        {inserted, "SUM(A1:B2)+SUM(A2:B3)+SUM(A3:B4)", "SUM(A1:B2)+SUM(A2:B5)+SUM(A5:B6)"},
        {inserted, "SUM(A:B)+SUM(3:3)+SUM(2:$4)", "SUM(A:B)+SUM(5:5)+SUM(2:$6)"},
        {inserted, "Data!A3+Other!A3+'Data'!A3&\"A3\"+[1]Data!A3",
         "Data!A5+Other!A3+'Data'!A5&\"A3\"+[1]Data!A3"},
        {inserted, "A1048576", "#REF!"},
        {inserted, "SUM(A2:A1048576)", "SUM(A2:A1048576)"},
        {{Axis::Rows, 1, 1}, "SUM(A1:B$1048576)+A1", "SUM(A1:B$1048576)+A2"},
        {removed, "A2+A3+A4+A5", "A2+#REF!+#REF!+A3"},
        {removed, "SUM(A1:A3)+SUM(A4:A9)+SUM(A3:A4)+SUM(A2:A5)",
         "SUM(A1:A2)+SUM(A3:A7)+SUM(#REF!)+SUM(A2:A3)"},
        {{Axis::Columns, 2, 1},
         "A1+B1+$C1+SUM(A1:B9)+SUM(A:B)+SUM(1:1)",
         "A1+C1+$D1+SUM(A1:C9)+SUM(A:C)+SUM(1:1)"},
        {{Axis::Columns, 2, -1}, "A1+B1+C1+SUM(A1:B9)+SUM(B:C)", "A1+#REF!+B1+SUM(A1:A9)+SUM(B:B)"},
    };
    for (const Case& each : cases)
        EXPECT_EQ(each.shift.formula(each.formula, "data", true), each.expected);
    EXPECT_EQ(inserted.formula("A3+data!A3", "Data", false), "A3+data!A5");
    EXPECT_EQ(removed.areas("A1:A3 A3:B4 C5"), "A1:A2 C3");
    EXPECT_EQ(removed.areas("A3:B4"), "");
}

std::string cellOf(const std::string& place, const std::string& content, const std::string& style = "") {
    return "<c r=\"" + place + "\"" + (style.empty() ? "" : " s=\"" + style + "\"") + content + "</c>";
}

/// Returns a row for each value, with three cells whose values occur once; the office writes them as numbers.
std::string rowsOf(const std::vector<int>& values, const std::string& type, int gap = 0) {
    std::string rows;
    int number = 0;
    for (const int value : values) {
        ++number;
        if (value == gap) continue;
        std::string cells;
        for (const char* column : {"A", "B", "C"})
            cells += cellOf(column + std::to_string(number),
                            type + "><v>" + std::to_string(value) + std::to_string(*column - 'A') + "</v>");
        rows += rowOf(cells, std::to_string(number));
    }
    return rows;
}

const std::vector<int> kValues{1, 2, 3, 4, 5, 6};
const std::vector<int> kWithGap{1, 2, 0, 3, 4, 5, 6};
const std::vector<int> kWithoutThird{1, 2, 4, 5, 6};

/// A part of the original that no export contains, and its expected content after the third row was inserted
/// or removed.
struct OwnCase {
    std::string what;
    std::string original;
    std::string inserted;
    std::string removed;
};

std::string sheetAfter(const std::string& own, const std::vector<int>& values) {
    BookTriple triple;
    triple.original = {.cells = rowsOf(kValues, ""), .afterCells = own};
    triple.baseline = {.cells = rowsOf(kValues, " t=\"n\"")};
    triple.edited = {.cells = rowsOf(values, " t=\"n\"")};
    return triple.part(sheetPart(1));
}

TEST(BookShiftTest, MovesWhatRefersToCells) {
    const std::vector<OwnCase> cases{
        {"ignored errors", "<ignoredErrors><ignoredError sqref=\"A2:A4 B3\"/></ignoredErrors>",
         "<ignoredErrors><ignoredError sqref=\"A2:A5 B4\"/></ignoredErrors>",
         "<ignoredErrors><ignoredError sqref=\"A2:A3\"/></ignoredErrors>"},
        {"a whole list", "<ignoredErrors><ignoredError sqref=\"B3\"/></ignoredErrors><z ref=\"A4\"/>",
         "<ignoredErrors><ignoredError sqref=\"B4\"/></ignoredErrors><z ref=\"A5\"/>",
         "</sheetData><z ref=\"A3\"/>"},
        {"the last of a list",
         "<x:list xmlns:x=\"y\" count=\"2\"><x:a ref=\"A3\"/><x:a ref=\"A5\"/></x:list><z ref=\"B3\"/>",
         "count=\"2\"><x:a ref=\"A4\"/><x:a ref=\"A6\"/></x:list><z ref=\"B4\"/>",
         "count=\"1\"><x:a ref=\"A4\"/></x:list></worksheet>"},
        {"an extension",
         "<extLst><ext><x:f xmlns:x=\"y\">Data!$A$4</x:f><x:sqref "
         "xmlns:x=\"y\">A3:A4</x:sqref></ext></extLst>",
         "Data!$A$5</x:f><x:sqref xmlns:x=\"y\">A4:A5</x:sqref>",
         "Data!$A$3</x:f><x:sqref xmlns:x=\"y\">A3</x:sqref>"},
        {"an extension's validity rule",
         "<extLst><ext><x:formula1 xmlns:x=\"y\"><x:f>Data!$A$4</x:f></x:formula1></ext></extLst>",
         "<x:f>Data!$A$5</x:f>", "<x:f>Data!$A$3</x:f>"},
        {"sparklines",
         "<x:g xmlns:x=\"y\"><x:sparkline><x:f>Data!A2</x:f><x:sqref>B3</x:sqref></x:sparkline>"
         "<x:sparkline><x:f>Data!A4</x:f><x:sqref>B4</x:sqref></x:sparkline></x:g>",
         "<x:sqref>B4</x:sqref></x:sparkline><x:sparkline><x:f>Data!A5</x:f><x:sqref>B5</x:sqref>",
         "<x:g xmlns:x=\"y\"><x:sparkline><x:f>Data!A3</x:f><x:sqref>B3</x:sqref></x:sparkline></x:g>"},
        {"a group of sparklines",
         "<x:g xmlns:x=\"y\"><x:color/><x:sparklines> <x:sparkline><x:f>Data!A4</x:f><x:sqref>B3</x:sqref>"
         "</x:sparkline> </x:sparklines> </x:g><z ref=\"A4\"/>",
         "<x:f>Data!A5</x:f><x:sqref>B4</x:sqref>", "</sheetData><z ref=\"A3\"/>"},
        {"a scenario",
         "<scenario><inputCells r=\"A3\" val=\"1\"/><inputCells r=\"B4\" val=\"1\"/></scenario>",
         "<inputCells r=\"A4\" val=\"1\"/><inputCells r=\"B5\" val=\"1\"/>",
         "<scenario><inputCells r=\"B3\" val=\"1\"/></scenario>"},
        {"the text of a shape",
         "<sp textlink=\"Data!$A$4\"/><sp textlink=\"$B$4\"/><sp textlink=\"Other!$B$4\"/>",
         "<sp textlink=\"Data!$A$5\"/><sp textlink=\"$B$5\"/><sp textlink=\"Other!$B$4\"/>",
         "<sp textlink=\"Data!$A$3\"/><sp textlink=\"$B$3\"/><sp textlink=\"Other!$B$4\"/>"},
        {"the cell of a check box", "<x:FmlaLink xmlns:x=\"y\">$A$4</x:FmlaLink>", ">$A$5</x:FmlaLink>",
         ">$A$3</x:FmlaLink>"},
        {"breaks",
         "<rowBreaks count=\"2\" manualBreakCount=\"1\"><brk id=\"2\" man=\"1\"/><brk id=\"4\"/></rowBreaks>",
         "count=\"2\" manualBreakCount=\"1\"><brk id=\"3\" man=\"1\"/><brk id=\"5\"/></rowBreaks>",
         "count=\"1\" manualBreakCount=\"0\"><brk id=\"3\"/></rowBreaks>"},
        {"an anchor",
         "<controls><anchor "
         "editAs=\"oneCell\"><from><col>4</col><row>1</row></from><to><row>4</row></to></anchor>"
         "<anchor><from><row>3</row></from><to><row>5</row></to></anchor></controls>",
         "<row>1</row></from><to><row>4</row></to></anchor><anchor><from><row>4</row></from><to><row>6</row>",
         "<row>1</row></from><to><row>4</row></to></anchor><anchor><from><row>2</row></from><to><row>4</"
         "row>"},
    };
    for (const OwnCase& each : cases) {
        EXPECT_THAT(sheetAfter(each.original, kWithGap), HasSubstr(each.inserted)) << each.what;
        EXPECT_THAT(sheetAfter(each.original, kWithoutThird), HasSubstr(each.removed)) << each.what;
    }
}

TEST(BookShiftTest, MovesCellsWithTheirFormulasAndFormats) {
    BookTriple triple;
    triple.original = {
        .cells =
            "<row><c s=\"1\"><v>10</v></c><c><v>11</v></c><c><v>12</v></c>"
            "<c><f t=\"shared\" si=\"4\" ref=\"D1:D3\">A1+A$4</f><v>2</v></c></row>" +
            rowOf("<c r=\"A2\" s=\"1\"><v>20</v></c><c r=\"B2\"><v>21</v></c><c r=\"C2\"><v>22</v></c>"
                  "<c r=\"D2\"><f t=\"shared\" si=\"4\"/><v>2</v></c>",
                  "2") +
            rowOf("<c r=\"A3\"><v>30</v></c><c r=\"B3\"><v>31</v></c><c r=\"C3\"><v>32</v></c>"
                  "<c r=\"D3\"><f t=\"shared\" si=\"4\"/><v>2</v></c>",
                  "3") +
            rowOf("<c r=\"A4\"><v>40</v></c><c r=\"B4\"><v>41</v></c><c r=\"C4\"><v>42</v></c>", "4"),
        .names = "<definedName name=\"Town\">Data!$B$3</definedName>",
        .formats = "<xf/>",
        .chain = "<c r=\"D1\" i=\"1\"/>"};
    const auto exported = [](bool isMoved) {
        const auto row = [](int number, int value, const std::string& formula) {
            const std::string at = std::to_string(number);
            std::string cells;
            for (const char* column : {"A", "B", "C"})
                cells += cellOf(column + at, " t=\"n\"><v>" + std::to_string(value) +
                                                 std::to_string(*column - 'A') + "</v>");
            if (!formula.empty()) cells += cellOf("D" + at, " t=\"n\"><f>" + formula + "</f><v>3</v>");
            return rowOf(cells, at);
        };
        const std::string last = isMoved ? "$5" : "$4";
        TestBook book{.cells = row(1, 1, "A1+A" + last) + row(2, 2, "A2+A" + last)};
        const int third = isMoved ? 4 : 3;
        book.cells += row(third, 3, "A" + std::to_string(third) + "+A" + last) + row(third + 1, 4, "");
        book.names = "<definedName name=\"Town\">Data!$B$" + std::to_string(third) + "</definedName>";
        return book;
    };
    triple.baseline = exported(false);
    triple.edited = exported(true);
    const std::string cells = triple.cells();
    for (const char* wanted :
         {"<row r=\"1\"><c r=\"A1\" s=\"1\"><v>10</v></c>", "<f>A1+A$5</f>", "<f>A2+A$5</f>", "<f>A4+A$5</f>",
          "<row r=\"3\"><c r=\"A3\" s=\"1\"/></row><row r=\"4\"><c r=\"A4\"><v>30</v></c>",
          "<row r=\"5\"><c r=\"A5\"><v>40</v></c>"})
        EXPECT_THAT(cells, HasSubstr(wanted));
    EXPECT_THAT(triple.part(kWorkbookPart), HasSubstr("Data!$B$4"));
    EXPECT_EQ(triple.part("/xl/calcChain.xml"), "no part");
}

/// An insertion also moves the last line; a text that is typed there moves nothing.
TEST(BookShiftTest, TellsAnInsertionFromTyping) {
    const std::string own = "<z ref=\"A6\"/>";
    EXPECT_THAT(sheetAfter(own, {1, 2, 3, 4, 5, 0, 6}), HasSubstr("<z ref=\"A7\"/>"));
    EXPECT_THAT(sheetAfter(own, {1, 2, 3, 4, 6}), HasSubstr("<z ref=\"A5\"/>"));
    for (const std::vector<int>& typed :
         {std::vector<int>{1, 2, 3, 4, 9, 6}, {1, 2, 3, 4, 5, 6, 7}, {1, 9, 8, 4, 5, 6}})
        EXPECT_THAT(sheetAfter(own, typed), HasSubstr("<z ref=\"A6\"/>"));
}

/// A sheet of rows with values and a row of totals with formulas only.
struct FormulaCase {
    std::string what;
    std::string former;  ///< the last rows of the export
    std::string now;
    std::string expected;
};

TEST(BookShiftTest, MovesLinesOfFormulasAlone) {
    const auto totals = [](int row, const std::string& area) {
        const std::string at = std::to_string(row);
        return rowOf(cellOf("A" + at, " t=\"n\"><f>SUM(" + area + ")</f><v>9</v>") +
                         cellOf("B" + at, " t=\"n\"><f>A" + at + "/2</f><v>9</v>"),
                     at);
    };
    const auto typed = [](int row, const std::string& value) {
        return rowOf(cellOf("A" + std::to_string(row), " t=\"n\"><v>" + value + "</v>"), std::to_string(row));
    };
    const std::string own = "<z ref=\"A7\"/>";
    const std::string now = "<z ref=\"A8\"/>";
    const std::vector<FormulaCase> cases{
        {"an empty row", totals(7, "A1:A6"), totals(8, "A1:A6"), now},
        {"a row that was filled", totals(7, "A1:A6"), typed(7, "77") + totals(8, "A1:A7"), now},
        {"a removed row", typed(6, "66") + totals(7, "A1:A6"), totals(6, "A1:A5"), "<z ref=\"A6\"/>"},
        {"another formula", totals(7, "A1:A6"), totals(7, "A2:A5"), own},
        {"another row below", totals(7, "A1:A6"), totals(7, "A1:A6") + totals(8, "A1:A6"), own},
        {"a value", totals(7, "A1:A6"), typed(7, "70"), own},
        {"several rows", totals(7, "A1:A6") + totals(8, "A1:A5") + totals(9, "A1:A4") + typed(10, "7"),
         totals(9, "A1:A6") + totals(10, "A1:A5") + totals(11, "A1:A4") + typed(12, "7"), "<z ref=\"A9\"/>"},
    };
    const std::vector<int> values{1, 2, 3, 4, 5};
    for (const FormulaCase& each : cases) {
        BookTriple triple;
        triple.original = {.cells = rowsOf(values, "") + each.former, .afterCells = own};
        triple.baseline = {.cells = rowsOf(values, " t=\"n\"") + each.former};
        triple.edited = {.cells = rowsOf(values, " t=\"n\"") + each.now};
        EXPECT_THAT(triple.part(sheetPart(1)), HasSubstr(each.expected)) << each.what;
    }
}

TEST(BookShiftTest, MovesColumnsOfFormulasAlone) {
    const auto rows = [](const std::string& type, char column) {
        std::string all;
        for (const char* at : {"1", "2", "3"})
            all += rowOf(cellOf(std::string("A") + at, type + "><v>" + at + "</v>") +
                             cellOf(column + std::string(at), type + "><f>A" + at + "*2</f><v>1</v>"),
                         at);
        return all;
    };
    const BookTriple triple{{.cells = rows("", 'B'), .afterCells = "<z ref=\"B2\"/>"},
                            {.cells = rows(" t=\"n\"", 'B')},
                            {.cells = rows(" t=\"n\"", 'C')}};
    EXPECT_THAT(triple.part(sheetPart(1)), HasSubstr("<z ref=\"C2\"/>"));
}

TEST(BookShiftTest, RefusesWhatCannotBeTold) {
    struct Case {
        std::string expected;
        std::string cells;  ///< further ones of the original
        std::vector<int> now;
    };
    const std::string array = rowOf("<c r=\"F9\"><f t=\"array\" ref=\"F2:F4\">A2:A4</f></c>", "9");
    const std::string table = rowOf("<c r=\"F9\"><f t=\"dataTable\" ref=\"F2:F4\"/></c>", "9");
    const std::vector<Case> cases{
        {"rows or columns were inserted, removed or sorted", "", {2, 3, 4, 5, 6, 1}},
        {"rows or columns were inserted, removed or sorted", "", {1, 9, 8, 7, 3, 4, 5, 6}},
        {"an array formula was divided", array, kWithGap},
        {"an array formula was divided", array, kWithoutThird},
        {"rows or columns were inserted or removed beside a data table", table, kWithGap},
    };
    for (const Case& each : cases) {
        BookTriple triple;
        triple.original = {.cells = rowsOf(kValues, "") + each.cells};
        triple.baseline = {.cells = rowsOf(kValues, " t=\"n\"")};
        triple.edited = {.cells = rowsOf(each.now, " t=\"n\"")};
        EXPECT_EQ(triple.cells(), "refused: " + each.expected);
    }
}

}  // namespace

}  // namespace mergeloom::graft
