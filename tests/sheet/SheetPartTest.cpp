#include "SheetXml.h"
#include "base/AutomationError.h"
#include "office/embedded/sheet/SheetPart.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace mergeloom::embedded {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Pair;

StoredCell cellOf(const std::string& cellXml) {
    return LoggedSheet(sheetOf("<row r=\"1\">" + cellXml + "</row>")).part.cell(at("A1"));
}

TEST(SheetPart, ReadsCellsOfAllTypes) {
    const std::vector<std::tuple<std::string, CellType, std::string>> cases{
        {"<c r=\"A1\"><v>1.5E3</v></c>", CellType::Number, "1.5E3"},
        {"<c r=\"A1\" t=\"n\"><v>-1</v></c>", CellType::Number, "-1"},
        {"<c r=\"A1\" t=\"s\"><v>7</v></c>", CellType::SharedText, "7"},
        {"<c r=\"A1\" t=\"str\"><f>B1</f><v>a&amp;b_x000D_</v></c>", CellType::FormulaText, "a&b\r"},
        {"<c r=\"A1\" t=\"str\"><f>B1</f><v></v></c>", CellType::FormulaText, ""},
        {"<c r=\"A1\" t=\"inlineStr\"><is><r><t>a</t></r><r><t> b</t></r><rPh><t>no</t></rPh></is></c>",
         CellType::InlineText, "a b"},
        {"<c r=\"A1\" t=\"b\"><v>1</v></c>", CellType::Boolean, "1"},
        {"<c r=\"A1\" t=\"e\"><v>#N/A</v></c>", CellType::Error, "#N/A"},
        {"<c r=\"A1\" t=\"d\"><v>2026-01-31</v></c>", CellType::Date, "2026-01-31"},
        {"<c r=\"A1\" s=\"2\"/>", CellType::Empty, ""},
        {"<c r=\"A1\"><v/></c>", CellType::Empty, ""},
        {"<c r=\"A1\"><!-- <v>1</v> --><v><![CDATA[2]]></v></c>", CellType::Number, "2"},
        {"<c r=\"$a$1\"><v>3</v></c>", CellType::Number, "3"},
        {"<c><v>4</v></c>", CellType::Number, "4"},
        {"<c r=\"B1\"><v>5</v></c>", CellType::Empty, ""},
        {"", CellType::Empty, ""},
    };
    for (const auto& [xml, type, value] : cases) {
        const StoredCell cell = cellOf(xml);
        EXPECT_EQ(cell.type, type) << xml;
        EXPECT_EQ(cell.value, value) << xml;
    }
    EXPECT_EQ(cellOf("<c r=\"A1\" s=\"12\"/>").style, 12);
    EXPECT_EQ(cellOf("<c r=\"A1\"><f>B1&lt;2</f><v>1</v></c>").formula, "B1<2");
}

TEST(SheetPart, CountsRowsAndCellsThatDoNotTellTheirPlace) {
    const LoggedSheet sheet(
        sheetOf("<row><c><v>1</v></c><c r=\"D1\"><v>2</v></c><c><v>3</v></c></row>"
                "<row r=\"5\"/><row><c r=\"B6\"><v>4</v></c></row>"));
    EXPECT_EQ(sheet.part.cell(at("A1")).value, "1");
    EXPECT_EQ(sheet.part.cell(at("D1")).value, "2");
    EXPECT_EQ(sheet.part.cell(at("E1")).value, "3");
    EXPECT_EQ(sheet.part.cell(at("B6")).value, "4");
    EXPECT_EQ(sheet.part.cell(at("A5")).type, CellType::Empty);
}

TEST(SheetPart, KnowsTheCellsOfArrayFormulasAndDataTables) {
    const LoggedSheet sheet(
        sheetOf("<row r=\"1\"><c r=\"A1\"><f t=\"array\" ref=\"A1:B3\">C1:D3</f><v>1</v></c><c r=\"B1\"/>"
                "<c r=\"D1\"><f t=\"array\" ref=\"D1\">E1</f><v>1</v></c></row>"
                "<row r=\"2\"><c r=\"F2\"><f t=\"dataTable\" ref=\"F2:G2\" r1=\"A1\"/><v>1</v></c></row>"
                "<row r=\"3\"><c r=\"B3\"><v>2</v></c></row>"));
    const auto areaAt = [&](const char* address) -> std::string {
        const std::optional<excel::CellArea> area = sheet.part.cell(at(address)).arrayArea;
        return area ? addressOf(*area) : "";
    };
    const std::vector<std::pair<const char*, std::string>> cases{
        {"A1", "A1:B3"}, {"B1", "A1:B3"}, {"B3", "A1:B3"}, {"A2", "A1:B3"}, {"C1", ""},
        {"A4", ""},      {"D1", "D1"},    {"D2", ""},      {"F2", "F2:G2"}, {"G2", "F2:G2"}};
    for (const auto& [address, area] : cases)
        EXPECT_EQ(areaAt(address), area) << address;
}

TEST(SheetPart, KnowsNoArrayFormulaThatWasWrittenOver) {
    LoggedSheet sheet(
        sheetOf("<row r=\"1\"><c r=\"A1\"><f t=\"array\" ref=\"A1:C1\">D1:F1</f><v>1</v></c></row>"));
    sheet.part.setText(at("B1"), "x");
    EXPECT_EQ(sheet.part.cell(at("B1")).arrayArea, std::nullopt);
    EXPECT_NE(sheet.part.cell(at("C1")).arrayArea, std::nullopt);
    sheet.part.setText(at("A1"), "x");
    EXPECT_EQ(sheet.part.cell(at("C1")).arrayArea, std::nullopt);
}

TEST(SheetPart, ReadsAnEditedCellAsEdited) {
    LoggedSheet sheet(sheetOf("<row r=\"2\"><c r=\"B2\" s=\"4\"><f>1+1</f><v>2</v></c></row>"));
    sheet.part.setText(at("B2"), "a<b> _x0041_\r\n");
    const StoredCell cell = sheet.part.cell(at("B2"));
    EXPECT_EQ(cell.type, CellType::InlineText);
    EXPECT_EQ(cell.value, "a<b> _x0041_\r\n");
    EXPECT_EQ(cell.style, 4);
    EXPECT_EQ(cell.formula, "");
    sheet.part.setText(at("Z9"), "");
    EXPECT_EQ(sheet.part.cell(at("Z9")).type, CellType::InlineText);
}

TEST(SheetPart, AnswersTheFormulaOfEachCellOfAGroup) {
    const LoggedSheet sheet(
        sheetOf("<row r=\"1\"><c r=\"A1\"><f t=\"shared\" ref=\"A1:A3\" si=\"0\">B1&amp;$C$1</f></c></row>"
                "<row r=\"2\"><c r=\"A2\"><f t=\"shared\" si=\"0\"/></c></row>"
                "<row r=\"3\"><c r=\"A3\"><f t=\"shared\" ref=\"A3:A4\" si=\"0\">D3</f></c></row>"
                "<row r=\"4\"><c r=\"A4\"><f t=\"shared\" si=\"0\"/></c>"
                "<c r=\"B4\"><f t=\"shared\" si=\"9\"/></c></row>"));
    EXPECT_EQ(sheet.part.cell(at("A1")).formula, "B1&$C$1");
    EXPECT_EQ(sheet.part.cell(at("A2")).formula, "B2&$C$1");
    EXPECT_EQ(sheet.part.cell(at("A4")).formula, "D4");
    EXPECT_EQ(sheet.part.cell(at("B4")).formula, "");
}

TEST(SheetPart, FindsAMasterBehindTheCellsOfItsGroup) {
    LoggedSheet sheet(
        sheetOf("<row r=\"1\"><c r=\"A1\"><f t=\"shared\" si=\"0\"/></c>"
                "<c r=\"B1\"><f t=\"shared\" ref=\"A1:C1\" si=\"0\">E1</f></c>"
                "<c r=\"C1\"><f t=\"shared\" si=\"0\"/></c></row>"));
    EXPECT_EQ(sheet.part.cell(at("A1")).formula, "D1");
    sheet.part.setText(at("B1"), "x");
    EXPECT_EQ(sheet.part.cell(at("A1")).formula, "D1");
    EXPECT_EQ(sheet.part.cell(at("C1")).formula, "F1");
}

std::vector<std::pair<int, double>> heightsOf(const SheetPart& part) {
    std::vector<std::pair<int, double>> heights;
    part.forEachRowHeight(
        [&](const StoredRowHeight& height) { heights.emplace_back(height.row, height.points); });
    return heights;
}

TEST(SheetPart, TellsTheHeightsOfRowsInOrder) {
    LoggedSheet sheet(
        sheetOf("<row r=\"2\" ht=\"20.25\" customHeight=\"1\"/><row r=\"3\"/><row r=\"4\" hidden=\"1\" "
                "ht=\"15\"/><row ht=\"x\"/><row r=\"9\" ht=\"12\"/>"));
    EXPECT_THAT(heightsOf(sheet.part), ElementsAre(Pair(2, 20.25), Pair(4, 0), Pair(9, 12)));
    sheet.undo.start();
    for (const auto& [row, points] :
         std::vector<std::pair<int, double>>{{1, 30}, {4, 16.5}, {7, 17}, {12, 18}})
        sheet.part.setRowHeight(row, points);
    EXPECT_THAT(heightsOf(sheet.part), ElementsAre(Pair(1, 30), Pair(2, 20.25), Pair(4, 16.5), Pair(7, 17),
                                                   Pair(9, 12), Pair(12, 18)));
    sheet.undo.undo();
    EXPECT_THAT(heightsOf(sheet.part), ElementsAre(Pair(2, 20.25), Pair(4, 0), Pair(9, 12)));
}

TEST(SheetPart, ReadsPrefixesAndTheStrictNamespace) {
    const LoggedSheet sheet(
        "<?xml version=\"1.0\"?>\n<x:worksheet "
        "xmlns:x=\"http://purl.oclc.org/ooxml/spreadsheetml/main\"><x:sheetData><x:row r=\"1\">"
        "<x:c r=\"A1\"><x:v>1</x:v></x:c></x:row></x:sheetData></x:worksheet>");
    EXPECT_TRUE(sheet.part.isStrict());
    EXPECT_EQ(sheet.part.elementName("row"), "x:row");
    EXPECT_EQ(sheet.part.cell(at("A1")).value, "1");
    EXPECT_FALSE(LoggedSheet(sheetOf("")).part.isStrict());
    EXPECT_EQ(LoggedSheet(sheetOf("")).part.elementName("row"), "row");
}

TEST(SheetPart, ReadsUtf16AndLatin1AndWritesUtf8) {
    const std::string plain = sheetOf("<row r=\"1\"><c r=\"A1\"><v>1</v></c></row>");
    std::string wide = "\xFE\xFF";
    for (const char character : "<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + plain) {
        wide += '\0';
        wide += character;
    }
    LoggedSheet sheet(wide);
    EXPECT_FALSE(sheet.part.isDirty());
    sheet.part.setText(at("A1"), "ä");
    EXPECT_THAT(sheet.part.toXml(), AllOf(HasSubstr("encoding=\"UTF-8\""), HasSubstr("<t>ä</t>")));
    const LoggedSheet latin("<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>" +
                            sheetOf("<row r=\"1\"><c r=\"A1\" t=\"str\"><v>\xE4</v></c></row>"));
    EXPECT_EQ(latin.part.cell(at("A1")).value, "ä");
}

TEST(SheetPart, RefusesWhatIsNoReadableWorksheet) {
    const std::string ns = kMainNamespace;
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", "is no worksheet"},
        {"<chartsheet xmlns=\"" + ns + "\"/>", "is no worksheet"},
        {"<worksheet/>", "is no worksheet"},
        {"<worksheet xmlns=\"urn:other\"/>", "is no worksheet"},
        {"<x:worksheet xmlns=\"" + ns + "\"/>", "is no worksheet"},
        {"<!DOCTYPE worksheet>" + sheetOf(""), "document type"},
        {sheetOf("") + sheetOf(""), "more than one root"},
        {sheetOf("<row r=\"1\">"), "not well-formed"},
        {worksheet("<sheetData/><sheetData/>"), "twice"},
        {sheetOf("<row r=\"2\"/><row r=\"1\"/>"), "rows out of order"},
        {sheetOf("<row r=\"2\"/><row r=\"2\"/>"), "rows out of order"},
        {sheetOf("<row r=\"0\"/>"), "row that no sheet has"},
        {sheetOf("<row r=\"1048577\"/>"), "row that no sheet has"},
        {sheetOf("<row r=\"1048576\"/><row/>"), "row that no sheet has"},
        {sheetOf("<row r=\"x\"/>"), "row that no sheet has"},
        {sheetOf("<row r=\"1\"><c r=\"B1\"/><c r=\"A1\"/></row>"), "cells in row 1 out of order"},
        {sheetOf("<row r=\"1\"><c r=\"B1\"/><c r=\"B1\"/></row>"), "cells in row 1 out of order"},
        {sheetOf("<row r=\"1\"><c r=\"A2\"/></row>"), "cannot stand there"},
        {sheetOf("<row r=\"1\"><c r=\"XFE1\"/></row>"), "cannot stand there"},
        {sheetOf("<row r=\"1\"><c r=\"XFD1\"/><c/></row>"), "cannot stand there"},
        {sheetOf("<row r=\"1\"><c r=\"\"/></row>"), "cannot stand there"},
        {std::string("\xFF\xFE<\0a", 5), "not well-formed"},
    };
    for (const auto& [xml, reason] : cases) {
        try {
            const LoggedSheet sheet(xml);
            ADD_FAILURE() << xml << " was taken";
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kFileCouldNotBeRead);
            EXPECT_THAT(error.what(), AllOf(HasSubstr("Orders.xlsx"), HasSubstr("/xl/worksheets/sheet1.xml"),
                                            HasSubstr(reason)))
                << xml;
        }
    }
}

TEST(SheetPart, CountsAsChangedUntilEverythingIsTakenBack) {
    LoggedSheet sheet(sheetOf(""));
    sheet.part.setText(at("A1"), "before the step");
    sheet.undo.start();
    sheet.part.setText(at("A1"), "in the step");
    sheet.undo.undo();
    EXPECT_TRUE(sheet.part.isDirty());
    EXPECT_EQ(sheet.part.cell(at("A1")).value, "before the step");
}

TEST(SheetPart, LeavesASectionThatIsTheSameAlone) {
    LoggedSheet sheet(worksheet("<sheetViews/><sheetData/><mergeCells/>"));
    sheet.part.setSection("sheetViews", "<sheetViews/>");
    sheet.part.setSection("drawing", "");
    EXPECT_FALSE(sheet.part.isDirty());
    EXPECT_EQ(sheet.part.section("mergeCells"), "<mergeCells/>");
    EXPECT_EQ(sheet.part.section("drawing"), "");
    EXPECT_EQ(sheet.part.section("sheetData"), "");
}

TEST(SheetPart, AnswersSectionsOfOneNameTogether) {
    LoggedSheet sheet(worksheet("<sheetData/><conditionalFormatting a=\"1\"/> <conditionalFormatting/>"));
    EXPECT_EQ(sheet.part.section("conditionalFormatting"),
              "<conditionalFormatting a=\"1\"/><conditionalFormatting/>");
    sheet.part.setSection("conditionalFormatting", "<conditionalFormatting b=\"2\"/>");
    EXPECT_EQ(sheet.part.section("conditionalFormatting"), "<conditionalFormatting b=\"2\"/>");
}

TEST(SheetPart, DeclaresANamespaceOnce) {
    LoggedSheet sheet("<worksheet xmlns=\"" + std::string(kMainNamespace) +
                      "\" xmlns:rel=\"urn:a&amp;b\" xmlns:r=\"urn:other\" ><sheetData/></worksheet>");
    const std::string before = sheet.part.toXml();
    EXPECT_EQ(sheet.part.declareNamespace("r", "urn:a&b"), "rel");
    EXPECT_FALSE(sheet.part.isDirty());
    sheet.undo.start();
    EXPECT_EQ(sheet.part.declareNamespace("r", "urn:c&\"d"), "r1");
    EXPECT_EQ(sheet.part.declareNamespace("q", "urn:c&\"d"), "r1");
    EXPECT_THAT(sheet.part.toXml(), HasSubstr(" xmlns:r1=\"urn:c&amp;&quot;d\"><sheetData/>"));
    sheet.undo.undo();
    EXPECT_FALSE(sheet.part.isDirty());
    EXPECT_EQ(sheet.part.toXml(), before);
    EXPECT_EQ(sheet.part.declareNamespace("s", "urn:c&\"d"), "s");
}

}  // namespace
}  // namespace mergeloom::embedded
