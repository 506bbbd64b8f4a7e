#include "graft/BookTriple.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mergeloom::graft {

namespace {

using ::testing::HasSubstr;

TEST(BookStructure, RefusesWhatHasNoRule) {
    struct Case {
        std::string expected;
        TestBook edited;
    };
    const std::string rows = rowOf("<c r=\"A1\" t=\"n\"><v>1</v></c>") +
                             rowOf("<c r=\"A2\" t=\"n\"><v>2</v></c>", "2") +
                             rowOf("<c r=\"A3\" t=\"n\"><v>3</v></c>", "3");
    const std::vector<Case> cases{
        {"a conditional format was changed",
         {.cells = rows,
          .afterCells = "<conditionalFormatting sqref=\"A1\"><cfRule/></conditionalFormatting>"}},
        {"the frozen panes or what the sheet shows was changed",
         {.cells = rows,
          .beforeCells =
              "<sheetViews><sheetView><pane state=\"frozen\" xSplit=\"1\"/></sheetView></sheetViews>"}},
        {"rows were grouped or ungrouped", {.cells = rows + "<row r=\"9\" outlineLevel=\"1\"/>"}},
    };
    for (const Case& each : cases) {
        const BookTriple triple{{.cells = rows}, {.cells = rows}, each.edited};
        EXPECT_EQ(triple.cells(), "refused: " + each.expected);
    }
    // A scrolled view and another selection are no change.
    const TestBook looked{
        .cells = rows,
        .beforeCells = "<sheetViews><sheetView topLeftCell=\"C3\" zoomScale=\"80\"/></sheetViews>"};
    EXPECT_EQ((BookTriple{{.cells = rows}, {.cells = rows}, looked}.cells()), "nothing changed");
}

/// Returns the workbook part with the sheets "Data" and "More", and the cells of "More".
std::string twoSheets(const std::vector<std::string>& names, const std::string& cells,
                      const std::string& definedNames = "") {
    std::vector<TestSheet> sheets;
    sheets.reserve(names.size());
    for (const std::string& name : names)
        sheets.push_back({name, "<sheetData>" + (name == "Data" ? "" : cells) + "</sheetData>"});
    return workbookFile(sheets,
                        definedNames.empty() ? "" : "<definedNames>" + definedNames + "</definedNames>");
}

std::string partAfter(const std::string& original, const std::string& baseline, const std::string& edited,
                      const std::string& part) {
    const model::GraftResult result =
        makePackageGraft()->graft({DocumentKind::Excel, 51, "book.xlsx", original, baseline, edited});
    if (const auto* const refusal = std::get_if<model::GraftRefusal>(&result))
        return "refused: " + refusal->reason;
    return opc::Package::read(std::get<model::GraftedPackage>(result).bytes, "book").readPart(part);
}

TEST(BookStructure, RenamesASheetUnlessSomethingElseRefersToIt) {
    const std::string former = rowOf("<c r=\"A1\" t=\"n\"><f>More!B1</f><v>1</v></c>");
    const std::string now = rowOf("<c r=\"A1\" t=\"n\"><f>'My &amp; own'!B1</f><v>1</v></c>");
    const std::string own = "<definedName name=\"Own\" localSheetId=\"1\">More!$A$1</definedName>";
    const std::string ownNow =
        "<definedName name=\"Own\" localSheetId=\"1\">'My &amp; own'!$A$1</definedName>";
    const std::string original = twoSheets({"Data", "More"}, former, own);
    const std::string edited = twoSheets({"Data", "My &amp; own"}, now, ownNow);
    const std::string refused = "refused: a sheet was renamed to which charts, rules or pivot tables refer";
    const std::string book = partAfter(original, original, edited, kWorkbookPart);
    EXPECT_THAT(book, HasSubstr("<sheet name=\"My &amp; own\" sheetId=\"2\""));
    EXPECT_THAT(book, HasSubstr(ownNow));
    EXPECT_THAT(partAfter(original, original, edited, sheetPart(2)), HasSubstr("<f>'My &amp; own'!B1</f>"));

    opc::Package referring = opc::Package::read(original, "book");
    referring.addPart("/docProps/app.xml", "application/xml", "<x>More!Own</x>");
    EXPECT_THAT(partAfter(packageBytes(referring), original, edited, kWorkbookPart),
                HasSubstr("My &amp; own"));
    for (const char* other : {"<x>EVENMORE!A1+Ever.More!A1+[1]More!A1</x>", "<x>'Ever''More'!A1</x>",
                              "<x><t>More!A1</t><y:v xmlns:y=\"z\">More!A1</y:v></x>"}) {
        opc::Package harmless = opc::Package::read(original, "book");
        harmless.addPart("/xl/other.xml", "application/xml", other);
        EXPECT_THAT(partAfter(packageBytes(harmless), original, edited, kWorkbookPart),
                    HasSubstr("My &amp; own"))
            << other;
    }
    referring.addPart("/xl/other.xml", "application/xml", "<x/>");
    for (const char* other :
         {"<x>More!$A$1</x>", "<x>EVENMORE!A1+more!A1</x>", "<x>SUM('More'!Own)</x>", "<x sheet=\"More\"/>",
          "<x><y location=\"More!A1\"/></x>", "<x>Data:More!A1</x>"}) {
        referring.writePart("/xl/other.xml", other);
        EXPECT_EQ(partAfter(packageBytes(referring), original, edited, kWorkbookPart), refused) << other;
    }
    EXPECT_EQ(partAfter(original, original, twoSheets({"More", "Data"}, former), kWorkbookPart),
              "refused: sheets were moved or removed");
    EXPECT_EQ(partAfter(original, original, twoSheets({"Data"}, former), kWorkbookPart),
              "refused: sheets were moved or removed");
}

TEST(BookStructure, AddsASheetAtItsPlace) {
    const std::string own = "<definedName name=\"Own\" localSheetId=\"1\">Last!$A$1</definedName>";
    const std::string original = twoSheets({"Data", "Last"}, rowOf("<c r=\"A1\"/>"), own);
    const std::string edited =
        twoSheets({"Data", "Added", "Last"}, rowOf("<c r=\"B1\" t=\"n\"><v>3</v></c>"),
                  "<definedName name=\"Own\" localSheetId=\"2\">Last!$A$1</definedName>");
    const std::string shown = twoSheets({"Data", "Last"}, rowOf("<c r=\"B1\" t=\"n\"><v>3</v></c>"), own);
    const std::string book = partAfter(original, shown, edited, kWorkbookPart);
    EXPECT_LT(book.find("name=\"Data\""), book.find("<sheet name=\"Added\" sheetId=\"3\""));
    EXPECT_LT(book.find("<sheet name=\"Added\""), book.find("name=\"Last\""));
    EXPECT_THAT(book, HasSubstr("localSheetId=\"2\""));
    EXPECT_THAT(partAfter(original, shown, edited, sheetPart(3)), HasSubstr("<c r=\"B1\"><v>3</v></c>"));
    EXPECT_THAT(partAfter(original, shown, edited, sheetPart(2)), HasSubstr("<c r=\"A1\"/>"));
}

/// The active sheet remains the same; otherwise it and the new one would be edited together.
TEST(BookStructure, KeepsTheActiveSheetWhenASheetIsAddedBeforeIt) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", "<bookViews><workbookView activeTab=\"1\"/></bookViews><sheets>"},
        {"<bookViews/>", "<bookViews><workbookView activeTab=\"1\"/></bookViews>"},
        {"<bookViews><workbookView firstSheet=\"0\"/></bookViews>",
         "<bookViews><workbookView firstSheet=\"1\" activeTab=\"1\"/></bookViews>"},
        {"<bookViews><workbookView activeTab=\"1\"/><workbookView/></bookViews>",
         "<bookViews><workbookView activeTab=\"2\"/><workbookView activeTab=\"1\"/></bookViews>"},
    };
    const std::string shown = twoSheets({"Data", "Last"}, "");
    for (const auto& [views, expected] : cases) {
        const std::string original = workbookFile({{"Data"}, {"Last"}}, "", views);
        EXPECT_THAT(partAfter(original, shown, twoSheets({"Added", "Data", "Last"}, ""), kWorkbookPart),
                    HasSubstr(expected));
        const std::string after =
            partAfter(original, shown, twoSheets({"Data", "Last", "Added"}, ""), kWorkbookPart);
        EXPECT_THAT(after, HasSubstr(views + "<sheets>"));
    }
}

/// A sheet with a chart or without a drawing, and an inserted picture after it, as LibreOffice writes it.
std::string withObjects(bool hasChart, const std::string& picture) {
    opc::Package package = workbookPackage({{"Data", "<sheetData/>"}});
    const std::string drawing = "/xl/drawings/drawing1.xml";
    const std::string chart =
        "<xdr:twoCellAnchor><xdr:graphicFrame><xdr:cNvPr id=\"5\"/></xdr:graphicFrame>"
        "</xdr:twoCellAnchor>";
    const std::string anchor =
        "<xdr:twoCellAnchor editAs=\"twoCell\"><xdr:from><xdr:col>3</xdr:col></xdr:from><xdr:pic><xdr:cNvPr "
        "id=\"7\" name=\"Mine\"/><a:blip r:embed=\"rId1\"/></xdr:pic></xdr:twoCellAnchor>";
    if (!hasChart && picture.empty()) return packageBytes(package);
    package.addPart(
        drawing, "application/vnd.openxmlformats-officedocument.drawing+xml",
        "<xdr:wsDr xmlns:xdr=\"http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing\" "
        "xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\" "
        "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\">" +
            (hasChart ? chart : "") + (picture.empty() ? "" : anchor) + "</xdr:wsDr>");
    package.relationshipsOf(sheetPart(1)).addPart(officeType("drawing"), drawing);
    const std::string id = package.relationshipsOf(sheetPart(1)).all().front().id;
    package.writePart(sheetPart(1), "<worksheet xmlns=\"" + kSpreadsheet +
                                        "\" xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/"
                                        "relationships\"><sheetData/><drawing r:id=\"" +
                                        id + "\"/></worksheet>");
    if (picture.empty()) return packageBytes(package);
    package.addPart("/xl/media/image9.gif", "image/gif", picture);
    package.relationshipsOf(drawing).addPart(officeType("image"), "/xl/media/image9.gif");
    return packageBytes(package);
}

TEST(BookStructure, InsertsPictures) {
    const std::string gif = std::string("GIF89a\x10\0\x10\0\0\0\0;", 14);
    for (const bool hasChart : {true, false}) {
        const std::string original = withObjects(hasChart, "");
        const std::string drawing =
            partAfter(original, original, withObjects(hasChart, gif), "/xl/drawings/drawing1.xml");
        EXPECT_THAT(drawing, HasSubstr("<xdr:twoCellAnchor editAs=\"twoCell\""));
        EXPECT_THAT(drawing, HasSubstr("<xdr:col>3</xdr:col>"));
        EXPECT_EQ(drawing.find("id=\"5\"") != std::string::npos, hasChart);
        EXPECT_EQ(partAfter(original, original, withObjects(hasChart, gif), "/xl/media/image1.gif"), gif);
    }
    const std::string chart = withObjects(true, "");
    EXPECT_EQ(partAfter(chart, chart, withObjects(false, ""), kWorkbookPart),
              "refused: a picture, a chart or a shape was changed");
}

TEST(BookStructure, FindsFaultsOfTheResult) {
    const TestBook edited{
        .cells = rowOf("<c r=\"A1\" t=\"n\"><v>1</v></c><c r=\"B1\" s=\"1\" t=\"s\"><v>0</v></c>") +
                 "<row r=\"5\" ht=\"20\" customHeight=\"true\"/>",
        .beforeCells = "<cols><col min=\"2\" max=\"2\" width=\"20\"/></cols>",
        .afterCells = "<mergeCells><mergeCell ref=\"C1:D1\"/></mergeCells>",
        .names = "<definedName name=\"Town\">Data!$B$1</definedName>",
        .formats = "<xf fontId=\"1\"/>",
        .lists = kShownFonts,
        .texts = kTexts};
    const BookTriple triple{edited, edited, edited};
    EXPECT_EQ(triple.fault(edited), "");
    struct Case {
        std::string TestBook::*member;
        std::string from;
        std::string to;
        std::string fault;
    };
    const std::vector<Case> cases{
        {&TestBook::cells, "<v>1</v>", "<v>2</v>", "a cell of the result would differ"},
        {&TestBook::cells, "t=\"s\"><v>0", "t=\"s\"><v>1", "a cell of the result would differ"},
        {&TestBook::cells, "<v>1</v>", "<f>2-1</f><v>1</v>", "a cell of the result would differ"},
        {&TestBook::cells, " s=\"1\"", "", "a cell would look different in the result"},
        {&TestBook::lists, "<b val=\"true\"/>", "", "a cell would look different in the result"},
        {&TestBook::cells, "ht=\"20\"", "ht=\"25\"", "rows or columns would differ in the result"},
        {&TestBook::cells, "ht=\"20\"", "ht=\"19.5\"", ""},
        {&TestBook::beforeCells, "width=\"20\"", "width=\"21\"",
         "rows or columns would differ in the result"},
        {&TestBook::afterCells, "C1:D1", "C1:E1", "other cells would be merged in the result"},
        {&TestBook::names, "$B$1", "$B$2", "a name would be elsewhere in the result"},
        {&TestBook::names, "Town", "Tower", "a name would be elsewhere in the result"},
        {&TestBook::afterCells, "</mergeCells>",
         "</mergeCells><hyperlinks><hyperlink ref=\"A1\" location=\"B2\"/></hyperlinks>",
         "in the result a link would differ"},
        {&TestBook::sheet, "Data", "Other", "the result would have other sheets"},
    };
    for (const Case& each : cases) {
        TestBook proof = edited;
        std::string& text = proof.*each.member;
        const std::size_t at = text.find(each.from);
        ASSERT_NE(at, std::string::npos) << each.from;
        text.replace(at, each.from.size(), each.to);
        EXPECT_EQ(triple.fault(proof), each.fault) << each.to;
    }
}

}  // namespace

}  // namespace mergeloom::graft
