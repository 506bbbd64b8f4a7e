#include "graft/BookTriple.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mergeloom::graft {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

/// The cell B2 of the original, of its export and of the export after an edit.
struct CellCase {
    std::string what;
    std::string original;
    std::string baseline;
    std::string edited;
    std::string expected;
};

std::string around(const std::string& cell) {
    return rowOf("<c r=\"A2\" s=\"1\"><v>1</v></c>" + cell + "<c r=\"C2\"/>", "2");
}

std::string resultingCells(const CellCase& each) {
    BookTriple triple;
    triple.original = {.cells = around(each.original), .formats = "<xf/><xf/>", .texts = kTexts};
    triple.baseline = {.cells = around(each.baseline), .texts = kTexts};
    triple.edited = {.cells = around(each.edited), .texts = kTexts};
    return triple.cells();
}

TEST(BookGraft, RepeatsTheContentOfCells) {
    const std::vector<CellCase> cases{
        {"number", "<c r=\"B2\" s=\"2\"><v>5</v></c>", "<c r=\"B2\" t=\"n\"><v>5</v></c>",
         "<c r=\"B2\" t=\"n\"><v>7.5</v></c>", "<c r=\"B2\" s=\"2\"><v>7.5</v></c>"},
        {"text over a number", "<c r=\"B2\" s=\"2\"><v>5</v></c>", "<c r=\"B2\" t=\"n\"><v>5</v></c>",
         "<c r=\"B2\" t=\"s\"><v>1</v></c>",
         "<c r=\"B2\" s=\"2\" t=\"inlineStr\"><is><t>a &amp; b</t></is></c>"},
        {"text with formats", "", "", "<c r=\"B2\" t=\"s\"><v>2</v></c>",
         "<c r=\"B2\" t=\"inlineStr\"><is><r><rPr><b val=\"true\"></b></rPr><t>bold</t></r><r><t> "
         "rest</t></r>"
         "</is></c>"},
        {"number over a shared text", "<c r=\"B2\" t=\"s\"><v>0</v></c>", "<c r=\"B2\" t=\"s\"><v>0</v></c>",
         "<c r=\"B2\" t=\"n\"><v>3</v></c>", "<c r=\"B2\"><v>3</v></c>"},
        {"formula", "<c r=\"B2\" s=\"2\"><v>5</v></c>", "<c r=\"B2\" t=\"n\"><v>5</v></c>",
         "<c r=\"B2\" t=\"str\"><f aca=\"false\">IF(A2&lt;2,&quot;x&quot;,1)</f><v>x</v></c>",
         "<c r=\"B2\" s=\"2\" t=\"str\"><f>IF(A2&lt;2,\"x\",1)</f><v>x</v></c>"},
        {"truth value", "", "", "<c r=\"B2\" t=\"b\"><f aca=\"false\">TRUE()</f><v>1</v></c>",
         "<c r=\"B2\" t=\"b\"><v>1</v></c>"},
        {"cleared", "<c r=\"B2\" s=\"2\" t=\"s\"><v>0</v><extLst/></c>", "<c r=\"B2\" t=\"s\"><v>0</v></c>",
         "", "<c r=\"B2\" s=\"2\"><extLst/></c>"},
        {"new result of a formula", "<c r=\"B2\"><f ca=\"1\">A2*2</f><v>2</v></c>",
         "<c r=\"B2\" t=\"n\"><f>A2*2</f><v>2</v></c><c r=\"D2\"/>",
         "<c r=\"B2\" t=\"n\"><f>A2*2</f><v>9</v></c><c r=\"D2\" t=\"n\"><v>1</v></c>",
         "<c r=\"B2\"><f ca=\"1\">A2*2</f><v>9</v></c>"},
        {"formula without a result", "<c r=\"B2\"><f>A2*2</f></c>",
         "<c r=\"B2\" t=\"n\"><f>A2*2</f><v>2</v></c><c r=\"D2\"/>",
         "<c r=\"B2\" t=\"n\"><f>A2*2</f><v>9</v></c><c r=\"D2\" t=\"n\"><v>1</v></c>",
         "<c r=\"B2\"><f>A2*2</f></c>"},
        {"formula with a link", "", "", "<c r=\"B2\" t=\"n\"><f>[1]Data!A1</f><v>3</v></c>",
         "refused: a formula with cells of another workbook was changed"},
        {"array formula", "<c r=\"B2\"><f t=\"array\" ref=\"B2:B3\">A2:A3*2</f><v>2</v></c>",
         "<c r=\"B2\" t=\"n\"><f t=\"array\" ref=\"B2:B3\">A2:A3*2</f><v>2</v></c>",
         "<c r=\"B2\" t=\"n\"><f t=\"array\" ref=\"B2:B3\">A2:A3*3</f><v>3</v></c>",
         "refused: an array formula was changed"},
    };
    for (const CellCase& each : cases) {
        const std::string result = resultingCells(each);
        EXPECT_THAT(result, HasSubstr(each.expected)) << each.what;
        if (!each.expected.starts_with("refused")) {
            EXPECT_THAT(result, HasSubstr("<c r=\"A2\" s=\"1\"><v>1</v></c>")) << each.what;
        }
    }
}

TEST(BookGraft, IsNothingWhenOnlyResultsDiffer) {
    EXPECT_EQ(resultingCells({"", "<c r=\"B2\"><f>NOW()</f><v>2</v></c>",
                              "<c r=\"B2\" t=\"n\"><f>NOW()</f><v>2</v></c>",
                              "<c r=\"B2\" t=\"n\"><f>NOW()</f><v>3</v></c>", ""}),
              "nothing changed");
    BookTriple triple;
    triple.original = triple.baseline = triple.edited = {.cells = around("")};
    EXPECT_EQ(triple.cells(), "nothing changed");
    triple.format = 54;
    EXPECT_THAT(triple.cells(), HasSubstr("<c r=\"C2\"/>"));
}

TEST(BookGraft, HandsASharedFormulaOverAndDropsTheChainForANewFormula) {
    BookTriple triple;
    triple.original = {
        .cells = rowOf("<c r=\"A1\"><f t=\"shared\" si=\"0\" ref=\"A1:A2\">B1*2</f><v>2</v></c>") +
                 rowOf("<c r=\"A2\"><f t=\"shared\" si=\"0\"/><v>4</v></c>", "2"),
        .chain = "<c r=\"A1\" i=\"1\"/><c r=\"A2\" i=\"1\"/>"};
    triple.baseline = {.cells = rowOf("<c r=\"A1\" t=\"n\"><f>B1*2</f><v>2</v></c>") +
                                rowOf("<c r=\"A2\" t=\"n\"><f>B2*2</f><v>4</v></c>", "2")};
    triple.edited = {.cells = rowOf("<c r=\"A1\" t=\"n\"><v>8</v></c>") +
                              rowOf("<c r=\"A2\" t=\"n\"><f>B2*2</f><v>4</v></c>", "2")};
    EXPECT_EQ(triple.cells(),
              rowOf("<c r=\"A1\"><v>8</v></c>") +
                  rowOf("<c r=\"A2\"><f t=\"shared\" si=\"0\" ref=\"A2\">B2*2</f><v>4</v></c>", "2"));
    EXPECT_EQ(triple.content("/xl/calcChain.xml", "calcChain"), "<c r=\"A2\" i=\"1\"/>");
    BookTriple withNewResult = triple;
    withNewResult.edited.cells = rowOf("<c r=\"A1\" t=\"n\"><v>8</v></c>") +
                                 rowOf("<c r=\"A2\" t=\"str\"><f>B2*2</f><v>ten</v></c>", "2");
    EXPECT_EQ(
        withNewResult.cells(),
        rowOf("<c r=\"A1\"><v>8</v></c>") +
            rowOf("<c r=\"A2\" t=\"str\"><f t=\"shared\" si=\"0\" ref=\"A2\">B2*2</f><v>ten</v></c>", "2"));
    triple.edited.cells =
        rowOf("<c r=\"A1\" t=\"n\"><f>B1*2</f><v>2</v></c><c r=\"C1\" t=\"n\"><f>A1</f><v>2</v></c>") +
        rowOf("<c r=\"A2\" t=\"n\"><f>B2*2</f><v>4</v></c>", "2");
    EXPECT_EQ(triple.part("/xl/calcChain.xml"), "no part");
    EXPECT_THAT(triple.part("/[Content_Types].xml"), Not(HasSubstr("calcChain")));
}

/// The original's formats after the format of the cell A1 was changed from the first one to another.
struct FormatCase {
    std::string what;
    std::string now;       ///< of the exported format
    std::string element;   ///< of the styles
    std::string expected;  ///< the beginning of its content, before the format of B1
};

TEST(BookGraft, AddsOnlyWhatDiffersToFormats) {
    const std::string theme =
        "<font><sz val=\"11\"/><color theme=\"1\"/><name val=\"Calibri\"/>"
        "<scheme val=\"minor\"/></font>";
    const std::string mine = "<xf numFmtId=\"4\" fontId=\"0\" xfId=\"3\"><protection locked=\"0\"/></xf>";
    const auto changed = [&](const std::string& attributes, const std::string& children = "") {
        return "<xf/>" + mine + "<xf " + attributes + ">" + children + "<protection locked=\"0\"/></xf>";
    };
    const std::string own = "numFmtId=\"4\" fontId=\"0\" xfId=\"3\"";
    const std::vector<FormatCase> cases{
        {"bold", "<xf fontId=\"1\"/>", "fonts",
         theme + "<font><b val=\"true\"/><sz val=\"11\"/><color theme=\"1\"/><name val=\"Calibri\"/>"
                 "<scheme val=\"minor\"/></font>"},
        {"font", "<xf fontId=\"2\"/>", "fonts",
         theme + "<font><sz val=\"11\"/><color theme=\"1\"/><name val=\"Arial\"/></font>"},
        {"bold format", "<xf fontId=\"1\"/>", "cellXfs",
         changed("numFmtId=\"4\" fontId=\"1\" xfId=\"3\" applyFont=\"1\"")},
        {"fill", "<xf fillId=\"1\"/>", "fills",
         "<fill/><fill/><fill><patternFill patternType=\"solid\"><fgColor "
         "rgb=\"FFFF0000\"/></patternFill></fill>"},
        {"fill's format", "<xf fillId=\"1\"/>", "cellXfs", changed(own + " fillId=\"2\" applyFill=\"1\"")},
        {"border", "<xf borderId=\"1\"/>", "borders",
         "<border><left style=\"thick\"/></border><border><left style=\"thick\"/><top "
         "style=\"thin\"/></border>"},
        {"alignment", "<xf><alignment wrapText=\"true\"/></xf>", "cellXfs",
         changed(own + " applyAlignment=\"1\"", "<alignment wrapText=\"true\"/>")},
        {"known number format", "<xf numFmtId=\"165\"/>", "cellXfs",
         changed("numFmtId=\"170\" fontId=\"0\" xfId=\"3\" applyNumberFormat=\"1\"")},
        {"new number format", "<xf numFmtId=\"166\"/>", "numFmts",
         "<numFmt numFmtId=\"170\" formatCode=\"0.000\"/><numFmt numFmtId=\"171\" formatCode=\"0.0\"/>"},
    };
    for (const FormatCase& each : cases) {
        BookTriple triple;
        triple.original = {
            .cells = rowOf("<c r=\"A1\" s=\"1\"><v>1</v></c>"),
            .formats = mine,
            .lists = "<numFmts><numFmt numFmtId=\"170\" formatCode=\"0.000\"/></numFmts><fonts>" + theme +
                     "</fonts><fills><fill/><fill/></fills>"
                     "<borders><border><left style=\"thick\"/></border></borders>"};
        const std::string shown =
            "<numFmts><numFmt numFmtId=\"165\" formatCode=\"0.000\"/>"
            "<numFmt numFmtId=\"166\" formatCode=\"0.0\"/></numFmts>" +
            kShownFonts;
        triple.baseline = {.cells = rowOf("<c r=\"A1\" s=\"0\" t=\"n\"><v>1</v></c>"), .lists = shown};
        triple.edited = {.cells = rowOf("<c r=\"A1\" s=\"1\" t=\"n\"><v>1</v></c><c r=\"B1\" s=\"1\"/>"),
                         .formats = each.now,
                         .lists = shown};
        EXPECT_THAT(triple.content(kStylesPart, each.element), StartsWith(each.expected)) << each.what;
        EXPECT_THAT(triple.cells(), HasSubstr("<c r=\"A1\" s=\"2\"><v>1</v></c><c r=\"B1\" s=\"3\"/>"))
            << each.what;
    }
}

TEST(BookGraft, RepeatsSizesAndMerges) {
    BookTriple triple;
    triple.original = {
        .cells = rowOf("<c r=\"A1\"/>") + "<row r=\"4\" ht=\"20\" customHeight=\"1\" hidden=\"1\"/>",
        .beforeCells = "<cols><col min=\"1\" max=\"5\" width=\"9\" style=\"3\"/></cols>",
        .afterCells = "<mergeCells count=\"1\"><mergeCell ref=\"C1:C2\"/></mergeCells>"};
    triple.baseline = {
        .cells = "<row r=\"4\" ht=\"20\" customHeight=\"true\" hidden=\"true\"/>",
        .beforeCells = "<cols><col min=\"1\" max=\"5\" width=\"9\" customWidth=\"true\"/></cols>",
        .afterCells = "<mergeCells><mergeCell ref=\"C1:C2\"/></mergeCells>"};
    triple.edited = {.cells = "<row r=\"1\" ht=\"33\" customHeight=\"true\"/><row r=\"4\" ht=\"12\"/>",
                     .beforeCells =
                         "<cols><col min=\"1\" max=\"1\" width=\"9\"/><col min=\"2\" max=\"2\" "
                         "width=\"22.5\"/><col min=\"3\" max=\"5\" width=\"9\"/></cols>",
                     .afterCells = "<mergeCells><mergeCell ref=\"E1:F2\"/></mergeCells>"};
    EXPECT_EQ(triple.cells(), "<row r=\"1\" customHeight=\"1\" ht=\"33\"><c r=\"A1\"/></row><row r=\"4\"/>");
    EXPECT_EQ(triple.content(sheetPart(1), "cols"),
              "<col min=\"1\" max=\"1\" width=\"9\" style=\"3\"/><col min=\"2\" max=\"2\" width=\"22.5\" "
              "style=\"3\" "
              "customWidth=\"1\"/><col min=\"3\" max=\"5\" width=\"9\" style=\"3\"/>");
    EXPECT_EQ(triple.content(sheetPart(1), "mergeCells"), "<mergeCell ref=\"E1:F2\"/>");
}

/// Types texts and numbers into cells that were part of merged cells, or are now.
TEST(BookGraft, RepeatsWhatIsTypedWhereCellsWereMergedOrDivided) {
    const std::string number = "<c r=\"A1\" t=\"n\"><v>1</v></c>";
    const std::string typed = number + "<c r=\"B1\" t=\"s\"><v>1</v></c><c r=\"C1\" t=\"n\"><v>2</v></c>";
    const std::string merged = "<mergeCells><mergeCell ref=\"A1:C1\"/></mergeCells>";
    for (const bool isMergedNow : {false, true}) {
        const std::string before = isMergedNow ? "" : merged;
        const BookTriple triple{
            {.cells = rowOf("<c r=\"A1\"><v>1</v></c><c r=\"B1\" s=\"1\"/>"), .afterCells = before},
            {.cells = rowOf(number), .afterCells = before},
            {.cells = rowOf(typed), .afterCells = isMergedNow ? merged : "", .texts = kTexts}};
        EXPECT_EQ(triple.cells(), rowOf("<c r=\"A1\"><v>1</v></c><c r=\"B1\" s=\"1\" "
                                        "t=\"inlineStr\"><is><t>a &amp; b</t></is></c>"
                                        "<c r=\"C1\"><v>2</v></c>"));
        EXPECT_EQ(triple.content(sheetPart(1), "mergeCells").find("ref=\"A1:C1\"") != std::string::npos,
                  isMergedNow);
    }
}

TEST(BookGraft, RepeatsNamesAsUnattendedRunsWriteThem) {
    BookTriple triple;
    triple.original = {.names =
                           "<definedName name=\"Old\" comment=\"kept\">Data!$A$1</definedName>"
                           "<definedName name=\"Gone\">Data!$A$2</definedName>"};
    triple.baseline = {.names =
                           "<definedName name=\"Old\" hidden=\"false\">Data!$A$1</definedName>"
                           "<definedName name=\"Gone\">Data!$A$2</definedName>"};
    triple.edited = {.names =
                         "<definedName name=\"Old\" hidden=\"false\">Data!$A$1:$B$1</definedName>"
                         "<definedName name=\"ammcity\" vbProcedure=\"false\">Data!$C$3</definedName>"
                         "<definedName name=\"Own\" localSheetId=\"0\">Data!$D$3</definedName>"};
    EXPECT_EQ(triple.content(kWorkbookPart, "definedNames"),
              "<definedName name=\"Old\" comment=\"kept\">Data!$A$1:$B$1</definedName>"
              "<definedName name=\"ammcity\">Data!$C$3</definedName>"
              "<definedName name=\"Own\" localSheetId=\"0\">Data!$D$3</definedName>");
}

}  // namespace

}  // namespace mergeloom::graft
