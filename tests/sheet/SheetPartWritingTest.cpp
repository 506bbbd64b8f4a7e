#include "SheetXml.h"
#include "office/embedded/sheet/SheetPart.h"

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>

namespace mergeloom::embedded {
namespace {

using Edit = std::function<void(SheetPart&)>;

struct WritingCase {
    const char* name;
    std::string before;
    Edit edit;
    std::string after;
};

void PrintTo(const WritingCase& item, std::ostream* out) {
    *out << item.name;
}

class SheetPartWritingTest : public ::testing::TestWithParam<WritingCase> {};

TEST_P(SheetPartWritingTest, WritesTheEditAndTakesItBack) {
    LoggedSheet sheet(GetParam().before);
    EXPECT_FALSE(sheet.part.isDirty());
    EXPECT_EQ(sheet.part.toXml(), GetParam().before);
    sheet.undo.start();
    GetParam().edit(sheet.part);
    EXPECT_TRUE(sheet.part.isDirty());
    EXPECT_EQ(sheet.part.toXml(), GetParam().after);
    EXPECT_EQ(sheet.part.toXml(), GetParam().after);
    EXPECT_EQ(LoggedSheet(GetParam().after).part.toXml(), GetParam().after);
    EXPECT_TRUE(sheet.undo.undo());
    EXPECT_FALSE(sheet.part.isDirty());
    EXPECT_EQ(sheet.part.toXml(), GetParam().before);
}

Edit setting(const char* address, const char* text) {
    return [=](SheetPart& part) { part.setText(at(address), text); };
}

Edit settingAll(std::vector<const char*> addresses) {
    return [=](SheetPart& part) {
        for (const char* address : addresses)
            part.setText(at(address), "x");
    };
}

Edit heightening(int row, double points) {
    return [=](SheetPart& part) { part.setRowHeight(row, points); };
}

Edit placing(const char* section, const char* xml) {
    return [=](SheetPart& part) { part.setSection(section, xml); };
}

/// Returns a cell with an inline text.
std::string textCell(const std::string& attributes, const std::string& text = "x") {
    return "<c " + attributes + " t=\"inlineStr\"><is><t>" + text + "</t></is></c>";
}

std::string x(const std::string& address) {
    return textCell("r=\"" + address + "\"");
}

INSTANTIATE_TEST_SUITE_P(
    Cells, SheetPartWritingTest,
    ::testing::Values(
        WritingCase{
            "over a number with all its attributes",
            sheetOf("<row r=\"1\"><c r='A1' s=\"3\" t=\"n\" cm=\"1\" vm=\"2\" ph=\"1\" y:z=\"1\"><f>1</f>"
                    "<v>1</v><extLst><ext/></extLst></c></row>"),
            setting("A1", "x"),
            sheetOf("<row r=\"1\"><c r='A1' s=\"3\" ph=\"1\" y:z=\"1\" t=\"inlineStr\"><is><t>x</t></is>"
                    "<extLst><ext/></extLst></c></row>")},
        WritingCase{"over an empty element", sheetOf("<row r=\"1\"><c r=\"A1\" s=\"3\" /></row>"),
                    setting("A1", "x"), sheetOf("<row r=\"1\">" + textCell("r=\"A1\" s=\"3\"") + "</row>")},
        WritingCase{"escapes", sheetOf("<row r=\"1\"/>"), setting("A1", "a&b<c>\"\x01_x0041_"),
                    sheetOf("<row r=\"1\">" + textCell("r=\"A1\"", "a&amp;b&lt;c&gt;\"_x0001__x005F_x0041_") +
                            "</row>")},
        WritingCase{
            "white space at an end", sheetOf("<row r=\"1\"/>"), setting("A1", "x\n"),
            sheetOf("<row r=\"1\"><c r=\"A1\" t=\"inlineStr\"><is><t xml:space=\"preserve\">x\n</t></is>"
                    "</c></row>")},
        WritingCase{"before, between and behind cells",
                    sheetOf("<row r=\"1\">\n <c r=\"B1\"/>\n <c r=\"D1\"><v>1</v></c>\n <extLst/></row>"),
                    settingAll({"E1", "C1", "A1", "F1"}),
                    sheetOf("<row r=\"1\">\n " + x("A1") + "<c r=\"B1\"/>\n " + x("C1") +
                            "<c r=\"D1\"><v>1</v></c>" + x("E1") + x("F1") + "\n <extLst/></row>")},
        WritingCase{
            "before, between and behind rows", sheetOf("\n<row r=\"2\"/>\n<!-- c --><row r=\"4\"/>\n"),
            settingAll({"A5", "A3", "A1", "B1", "A6"}),
            sheetOf("\n<row r=\"1\">" + x("A1") + x("B1") + "</row><row r=\"2\"/>\n<!-- c --><row r=\"3\">" +
                    x("A3") + "</row><row r=\"4\"/><row r=\"5\">" + x("A5") + "</row><row r=\"6\">" +
                    x("A6") + "</row>\n")},
        WritingCase{"cells that are counted", sheetOf("<row><c/><c s=\"1\"><v>1</v></c></row>"),
                    settingAll({"B1", "C1"}),
                    sheetOf("<row><c/>" + textCell("s=\"1\"") + x("C1") + "</row>")},
        WritingCase{"twice", sheetOf("<row r=\"1\"/>"),
                    [](SheetPart& part) {
                        part.setText(at("A1"), "first");
                        part.setText(at("A1"), "x");
                    },
                    sheetOf("<row r=\"1\">" + x("A1") + "</row>")}));

INSTANTIATE_TEST_SUITE_P(
    EmptyParts, SheetPartWritingTest,
    ::testing::Values(
        WritingCase{"no rows", worksheet("<sheetData/>"), setting("B3", "x"),
                    sheetOf("<row r=\"3\">" + x("B3") + "</row>")},
        WritingCase{"no rows between two tags", sheetOf("\n"), setting("B3", "x"),
                    sheetOf("<row r=\"3\">" + x("B3") + "</row>\n")},
        WritingCase{
            "no data", worksheet("<cols/><mergeCells/>"), setting("B3", "x"),
            worksheet("<cols/><sheetData><row r=\"3\">" + x("B3") + "</row></sheetData><mergeCells/>")},
        WritingCase{"nothing", "<x:worksheet xmlns:x=\"" + std::string(kMainNamespace) + "\" />",
                    [](SheetPart& part) {
                        part.setText(at("B3"), "x");
                        part.setSection("drawing", "<x:drawing/>");
                    },
                    "<x:worksheet xmlns:x=\"" + std::string(kMainNamespace) +
                        "\"><x:sheetData><x:row r=\"3\"><x:c r=\"B3\" t=\"inlineStr\"><x:is><x:t>x</x:t>"
                        "</x:is></x:c></x:row></x:sheetData><x:drawing/></x:worksheet>"},
        WritingCase{"nothing but a namespace", "<worksheet xmlns=\"" + std::string(kMainNamespace) + "\"/>",
                    [](SheetPart& part) { part.declareNamespace("r", "urn:r"); },
                    "<worksheet xmlns=\"" + std::string(kMainNamespace) + "\" xmlns:r=\"urn:r\"/>"}));

INSTANTIATE_TEST_SUITE_P(
    Formats, SheetPartWritingTest,
    ::testing::Values(
        WritingCase{
            "of the row",
            worksheet("<cols><col min=\"1\" max=\"9\" style=\"7\"/></cols><sheetData><row "
                      "r=\"1\" s=\"5\" customFormat=\"1\"/></sheetData>"),
            setting("A1", "x"),
            worksheet("<cols><col min=\"1\" max=\"9\" style=\"7\"/></cols><sheetData><row r=\"1\" s=\"5\" "
                      "customFormat=\"1\">" +
                      textCell("r=\"A1\" s=\"5\"") + "</row></sheetData>")},
        WritingCase{"of the column",
                    worksheet("<cols><col min=\"1\" max=\"1\"/><col min=\"2\" max=\"3\" style=\"7\"/></cols>"
                              "<sheetData><row r=\"1\" s=\"5\"/></sheetData>"),
                    settingAll({"A1", "C1", "D1", "B2"}),
                    worksheet("<cols><col min=\"1\" max=\"1\"/><col min=\"2\" max=\"3\" style=\"7\"/></cols>"
                              "<sheetData><row r=\"1\" s=\"5\">" +
                              x("A1") + textCell("r=\"C1\" s=\"7\"") + x("D1") + "</row><row r=\"2\">" +
                              textCell("r=\"B2\" s=\"7\"") + "</row></sheetData>")}));

INSTANTIATE_TEST_SUITE_P(
    Extents, SheetPartWritingTest,
    ::testing::Values(
        WritingCase{"spans are widened",
                    sheetOf("<row r=\"1\" spans=\"2:3 6:7\"/><row r=\"2\" spans='1:9'/>"),
                    settingAll({"A1", "I1", "C2"}),
                    sheetOf("<row r=\"1\" spans=\"1:9\">" + x("A1") + x("I1") +
                            "</row><row r=\"2\" spans='1:9'>" + x("C2") + "</row>")},
        WritingCase{"spans that are none stay", sheetOf("<row r=\"1\" spans=\"x\"/>"), setting("C1", "x"),
                    sheetOf("<row r=\"1\" spans=\"x\">" + x("C1") + "</row>")},
        WritingCase{"the dimension grows", worksheet("<dimension ref=\"B2:C3\" a=\"1\"/><sheetData/>"),
                    settingAll({"D1", "B9"}),
                    worksheet("<dimension ref=\"B1:D9\" a=\"1\"/><sheetData><row r=\"1\">" + x("D1") +
                              "</row><row r=\"9\">" + x("B9") + "</row></sheetData>")},
        WritingCase{"the dimension stays", worksheet("<dimension ref=\"A1:C3\"></dimension><sheetData/>"),
                    setting("B2", "x"),
                    worksheet("<dimension ref=\"A1:C3\"></dimension><sheetData><row r=\"2\">" + x("B2") +
                              "</row></sheetData>")},
        WritingCase{"heights do not make it grow", worksheet("<dimension ref=\"A1\"/><sheetData/>"),
                    heightening(9, 30),
                    worksheet("<dimension ref=\"A1\"/><sheetData><row r=\"9\" ht=\"30\" customHeight=\"1\"/>"
                              "</sheetData>")}));

INSTANTIATE_TEST_SUITE_P(
    Heights, SheetPartWritingTest,
    ::testing::Values(
        WritingCase{"of a row with cells", sheetOf("<row r=\"1\" hidden=\"1\" ht=\"0\"><c r=\"A1\"/></row>"),
                    heightening(1, 20.25),
                    sheetOf("<row r=\"1\" ht=\"20.25\" customHeight=\"1\"><c r=\"A1\"/></row>")},
        WritingCase{"of a row without", sheetOf("<row r=\"1\" collapsed=\"1\"/>"), heightening(1, 409.5),
                    sheetOf("<row r=\"1\" collapsed=\"1\" ht=\"409.5\" customHeight=\"1\"/>")},
        WritingCase{"with a text", sheetOf("<row r=\"1\"/>"),
                    [](SheetPart& part) {
                        part.setText(at("A1"), "x");
                        part.setRowHeight(1, 12);
                        part.setRowHeight(1, 33);
                        part.setRowHeight(2, 15);
                    },
                    sheetOf("<row r=\"1\" ht=\"33\" customHeight=\"1\">" + x("A1") +
                            "</row><row r=\"2\" ht=\"15\" customHeight=\"1\"/>")}));

const std::string kControls =
    "<mc:AlternateContent><mc:Choice Requires=\"x14\"><controls/></mc:Choice></mc:AlternateContent>";

INSTANTIATE_TEST_SUITE_P(
    Sections, SheetPartWritingTest,
    ::testing::Values(
        WritingCase{"is replaced", worksheet("<sheetViews a=\"1\"/>\n<sheetData/>"),
                    placing("sheetViews", "<sheetViews/>"), worksheet("<sheetViews/>\n<sheetData/>")},
        WritingCase{"goes first", worksheet("<sheetData/>"), placing("sheetPr", "<sheetPr/>"),
                    worksheet("<sheetPr/><sheetData/>")},
        WritingCase{"goes behind the data", worksheet("<sheetData/>\n<pageMargins/>"),
                    placing("mergeCells", "<mergeCells/>"),
                    worksheet("<sheetData/><mergeCells/>\n<pageMargins/>")},
        WritingCase{"goes last", worksheet("<sheetData/><drawing/>"), placing("tableParts", "<tableParts/>"),
                    worksheet("<sheetData/><drawing/><tableParts/>")},
        WritingCase{"goes before wrapped controls", worksheet("<sheetData/><legacyDrawing/>" + kControls),
                    placing("picture", "<picture/>"),
                    worksheet("<sheetData/><legacyDrawing/><picture/>" + kControls)},
        WritingCase{"goes behind wrapped controls", worksheet("<sheetData/>" + kControls + "<extLst/>"),
                    placing("tableParts", "<tableParts/>"),
                    worksheet("<sheetData/>" + kControls + "<tableParts/><extLst/>")},
        WritingCase{"is taken out", worksheet("<sheetData/><drawing/><extLst/>"), placing("drawing", ""),
                    worksheet("<sheetData/><extLst/>")},
        WritingCase{"takes the place of several",
                    worksheet("<sheetData/><conditionalFormatting/>\n<conditionalFormatting/><hyperlinks/>"),
                    placing("conditionalFormatting", "<conditionalFormatting b=\"1\"/>"),
                    worksheet("<sheetData/><conditionalFormatting b=\"1\"/>\n<hyperlinks/>")},
        WritingCase{"several in the schema's order", worksheet("<sheetData/>"),
                    [](SheetPart& part) {
                        part.setSection("legacyDrawing", "<legacyDrawing/>");
                        part.setSection("cols", "<cols/>");
                        part.setSection("drawing", "<drawing/>");
                        part.setSection("autoFilter", "<autoFilter/>");
                        part.setSection("sheetViews", "<sheetViews/>");
                    },
                    worksheet("<sheetViews/><cols/><sheetData/><autoFilter/><drawing/><legacyDrawing/>")}));

std::string master(const std::string& address, const std::string& area, const std::string& formula) {
    return "<c r=\"" + address + "\"><f t=\"shared\" ref=\"" + area + "\" si=\"0\">" + formula +
           "</f><v>1</v></c>";
}

std::string successor(const std::string& address) {
    return "<c r=\"" + address + "\"><f t=\"shared\" si=\"0\"/><v>1</v></c>";
}

/// Returns the cell that defines the formula now. Its attributes keep their order.
std::string newMaster(const std::string& address, const std::string& area, const std::string& formula) {
    return "<c r=\"" + address + "\"><f t=\"shared\" si=\"0\" ref=\"" + area + "\">" + formula +
           "</f><v>1</v></c>";
}

INSTANTIATE_TEST_SUITE_P(
    SharedFormulas, SheetPartWritingTest,
    ::testing::Values(
        WritingCase{"moves down",
                    sheetOf("<row r=\"1\">" + master("A1", "A1:A3", "B1&amp;\"A1\"") + "</row><row r=\"2\">" +
                            successor("A2") + "</row><row r=\"3\">" + successor("A3") + "</row>"),
                    setting("A1", "x"),
                    sheetOf("<row r=\"1\">" + x("A1") + "</row><row r=\"2\">" +
                            newMaster("A2", "A2:A3", "B2&amp;\"A1\"") + "</row><row r=\"3\">" +
                            successor("A3") + "</row>")},
        WritingCase{"moves twice",
                    sheetOf("<row r=\"1\">" + master("A1", "A1:C1", "A$2") + successor("B1") +
                            successor("C1") + "</row>"),
                    settingAll({"A1", "B1"}),
                    sheetOf("<row r=\"1\">" + x("A1") + x("B1") + newMaster("C1", "C1", "C$2") + "</row>")},
        WritingCase{
            "passes over cells of other groups and written ones",
            sheetOf("<row r=\"1\">" + master("A1", "A1:D2", "E1") + successor("B1") +
                    "<c r=\"C1\"><f t=\"shared\" si=\"1\"/></c><c r=\"D1\"><f>1</f></c></row><row r=\"2\">" +
                    successor("A2") + successor("F2") + "</row>"),
            settingAll({"B1", "A1"}),
            sheetOf("<row r=\"1\">" + x("A1") + x("B1") +
                    "<c r=\"C1\"><f t=\"shared\" si=\"1\"/></c><c r=\"D1\"><f>1</f></c></row><row r=\"2\">" +
                    newMaster("A2", "A2:D2", "E2") + successor("F2") + "</row>")},
        WritingCase{"passes over cells beside its area",
                    sheetOf("<row r=\"1\">" + master("B1", "B1:C2", "E1") + successor("D1") +
                            "</row><row r=\"2\">" + successor("A2") + successor("B2") + "</row>"),
                    setting("B1", "x"),
                    sheetOf("<row r=\"1\">" + x("B1") + successor("D1") + "</row><row r=\"2\">" +
                            successor("A2") + newMaster("B2", "B2:C2", "E2") + "</row>")},
        WritingCase{"a cell without the text",
                    sheetOf("<row r=\"1\">" + master("A1", "A1:B1", "C1") + successor("B1") + "</row>"),
                    setting("B1", "x"),
                    sheetOf("<row r=\"1\">" + master("A1", "A1:B1", "C1") + x("B1") + "</row>")},
        WritingCase{"a group of one", sheetOf("<row r=\"1\">" + master("A1", "A1", "C1") + "</row>"),
                    setting("A1", "x"), sheetOf("<row r=\"1\">" + x("A1") + "</row>")},
        WritingCase{
            "stops at another master of the same number",
            sheetOf("<row r=\"1\">" + master("A1", "A1:C1", "D1") + master("B1", "B1:C1", "E1") +
                    successor("C1") + "</row>"),
            setting("A1", "x"),
            sheetOf("<row r=\"1\">" + x("A1") + master("B1", "B1:C1", "E1") + successor("C1") + "</row>")},
        WritingCase{
            "a cell where the formula leaves the sheet gets its own",
            sheetOf("<row r=\"1\">" + master("B1", "A1:B3", "A1") + "</row><row r=\"2\">" + successor("A2") +
                    successor("B2") + "</row>"),
            setting("B1", "x"),
            sheetOf("<row r=\"1\">" + x("B1") + "</row><row r=\"2\"><c r=\"A2\"><f>#REF!</f><v>1</v></c>" +
                    newMaster("B2", "A2:B3", "A2") + "</row>")}));

Edit content(const std::string& cell, const CellContent& given) {
    return [=](SheetPart& part) { part.setContent(at(cell.c_str()), given); };
}

INSTANTIATE_TEST_SUITE_P(
    Contents, SheetPartWritingTest,
    ::testing::Values(
        WritingCase{"content over another one",
                    sheetOf("<row r=\"1\"><c r=\"A1\" s=\"4\" t=\"s\" cm=\"1\"><v>3</v><extLst/></c></row>"),
                    content("A1", {"", "<v>7</v>"}),
                    sheetOf("<row r=\"1\"><c r=\"A1\" s=\"4\"><v>7</v><extLst/></c></row>")},
        WritingCase{"no content", sheetOf("<row r=\"1\"><c r=\"A1\" s=\"4\" t=\"b\"><v>1</v></c></row>"),
                    content("A1", {}), sheetOf("<row r=\"1\"><c r=\"A1\" s=\"4\"/></row>")},
        WritingCase{
            "content of a new cell in a row with a format",
            sheetOf("<row r=\"1\" s=\"3\" customFormat=\"1\"/>"), content("B1", {"e", "<v>#N/A</v>"}),
            sheetOf("<row r=\"1\" s=\"3\" customFormat=\"1\"><c r=\"B1\" s=\"3\" t=\"e\"><v>#N/A</v></c>"
                    "</row>")},
        WritingCase{"result of a formula, and none where there is none",
                    sheetOf("<row r=\"1\"><c r=\"A1\" t=\"str\" cm=\"1\"><f ca=\"1\">B1</f><v>x</v></c>"
                            "<c r=\"B1\"><f>1</f></c><c r=\"C1\"><v>1</v></c></row>"),
                    [](SheetPart& part) {
                        for (const char* cell : {"A1", "B1", "C1"})
                            part.setResult(at(cell), {"", "<v>2</v>"});
                    },
                    sheetOf("<row r=\"1\"><c r=\"A1\" cm=\"1\"><f ca=\"1\">B1</f><v>2</v></c>"
                            "<c r=\"B1\"><f>1</f></c><c r=\"C1\"><v>1</v></c></row>")},
        WritingCase{
            "result after another content, and of a new cell",
            sheetOf("<row r=\"1\" s=\"3\" customFormat=\"1\"><c r=\"A1\"><v>1</v></c></row>"),
            [](SheetPart& part) {
                for (const char* cell : {"A1", "B1"}) {
                    part.setContent(at(cell), {"", "<f>C1</f><v>2</v>"});
                    part.setResult(at(cell), {"b", "<v>1</v>"});
                }
            },
            sheetOf("<row r=\"1\" s=\"3\" customFormat=\"1\"><c r=\"A1\" t=\"b\"><f>C1</f><v>1</v></c>"
                    "<c r=\"B1\" s=\"3\" t=\"b\"><f>C1</f><v>1</v></c></row>")},
        WritingCase{
            "format before and after a text",
            sheetOf("<row r=\"1\"><c r=\"A1\"><v>1</v></c><c r=\"B1\" s=\"1\"/></row>"),
            [](SheetPart& part) {
                part.setStyle(at("A1"), 5);
                part.setText(at("A1"), "x");
                part.setText(at("B1"), "y");
                part.setStyle(at("B1"), 6);
                part.setStyle(at("D1"), 7);
            },
            sheetOf("<row r=\"1\"><c r=\"A1\" t=\"inlineStr\" s=\"5\"><is><t>x</t></is></c>"
                    "<c r=\"B1\" s=\"6\" t=\"inlineStr\"><is><t>y</t></is></c><c r=\"D1\" s=\"7\"/></row>")},
        WritingCase{"attributes of rows", sheetOf("<row r=\"1\" ht=\"20\" customHeight=\"1\"/>"),
                    [](SheetPart& part) {
                        part.setRowAttribute(1, "ht", std::nullopt);
                        part.setRowAttribute(1, "hidden", "1");
                        part.setRowAttribute(3, "hidden", "1");
                    },
                    sheetOf("<row r=\"1\" customHeight=\"1\" hidden=\"1\"/><row r=\"3\" hidden=\"1\"/>")}));

}  // namespace
}  // namespace mergeloom::embedded
