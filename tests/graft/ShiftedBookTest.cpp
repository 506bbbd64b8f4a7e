#include "doubles/ExcelFiles.h"
#include "office/graft/Refusal.h"
#include "office/graft/ShiftedBook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mergeloom::graft {

namespace {

using ::testing::HasSubstr;

constexpr LineShift kRowInserted{Axis::Rows, 3, 1};
constexpr LineShift kRowRemoved{Axis::Rows, 3, -1};

/// A part that is related to the sheet "Data", and its content after a shift.
struct PartCase {
    std::string type;  ///< the short name of the relationship
    std::string xml;
    LineShift shift;
    std::string expected;  ///< the content of the part, or the refusal
    std::string owner = sheetPart(1);
};

std::string shifted(const PartCase& each) {
    opc::Package package = workbookPackage({{"Data"}, {"Other"}});
    const std::string part = "/xl/own/" + each.type + "1." + (each.type == "vmlDrawing" ? "vml" : "xml");
    package.addPart(part, "application/xml", each.xml);
    package.relationshipsOf(each.owner).addPart(officeType(each.type), part);
    try {
        shiftLines(package, "data", each.shift);
        return package.readPart(part);
    } catch (const Refusal& refusal) {
        return "refused: " + refusal.refusal().reason;
    }
}

TEST(ShiftedBookTest, MovesThePartsOfTheSheet) {
    const std::string comments =
        "<comments><commentList><comment ref=\"B3\"/><comment ref=\"C9\"/></commentList></comments>";
    const std::string note =
        "<xml xmlns:x=\"y\"><x:ClientData><x:Anchor>1, 15, 2, 10, 3, 15, 6, 4</x:Anchor><x:Row>2</x:Row>"
        "<x:Column>1</x:Column></x:ClientData></xml>";
    const std::string drawing =
        "<d><anchor><from><col>1</col><row>2</row></from><to><col>4</col><row>5</row></to></anchor></d>";
    const std::string fixed =
        "<d><anchor editAs=\"absolute\"><from><row>2</row></from><to><row>5</row></to></anchor></d>";
    const LineShift column{Axis::Columns, 2, 2};
    const std::vector<PartCase> cases{
        {"comments", comments, kRowInserted, "<comment ref=\"B4\"/><comment ref=\"C10\"/>"},
        {"comments", comments, {Axis::Rows, 5, -1}, "<comment ref=\"B3\"/><comment ref=\"C8\"/>"},
        {"comments", comments, kRowRemoved, "refused: rows or columns with a comment were removed"},
        {"comments", comments, kRowInserted, "<comment ref=\"B3\"/><comment ref=\"C9\"/>", sheetPart(2)},
        {"vmlDrawing", note, kRowInserted,
         ">1, 15, 3, 10, 3, 15, 7, 4</x:Anchor><x:Row>3</x:Row><x:Column>1<"},
        {"vmlDrawing", note, column, "> 3, 15, 2, 10, 5, 15, 6, 4</x:Anchor><x:Row>2</x:Row><x:Column>3<"},
        {"vmlDrawing",
         note,
         {Axis::Rows, 2, -1},
         ">1, 15, 1, 10, 3, 15, 5, 4</x:Anchor><x:Row>1</x:Row><x:Column>1<"},
        {"drawing", drawing, kRowInserted,
         "<from><col>1</col><row>3</row></from><to><col>4</col><row>6</row></to>"},
        {"drawing", drawing, column,
         "<from><col>3</col><row>2</row></from><to><col>6</col><row>5</row></to>"},
        {"drawing",
         drawing,
         {Axis::Rows, 2, -3},
         "<from><col>1</col><row>1</row></from><to><col>4</col><row>2</row></to>"},
        {"drawing", fixed, kRowInserted, "<from><row>2</row></from><to><row>5</row></to>"},
        {"chart", "<c><f>Data!$A$4</f><sqref>Data!$A$4</sqref><f>Other!$A$4</f><from><row>9</row></from></c>",
         kRowInserted, "<f>Data!$A$5</f><sqref>Data!$A$5</sqref><f>Other!$A$4</f><from><row>9</row></from>",
         sheetPart(2)},
        {"pivotTable", "<p/>", kRowInserted,
         "refused: rows or columns were inserted or removed beside a pivotTable"},
        {"pivotTable", "<p/>", kRowInserted, "<p/>", sheetPart(2)},
    };
    for (const PartCase& each : cases)
        EXPECT_THAT(shifted(each), HasSubstr(each.expected)) << each.type << " " << each.xml;
}

TEST(ShiftedBookTest, MovesTheCellsOfTheSheetAndTheFormulasOfOthers) {
    const std::string own =
        "<cols><col min=\"1\" max=\"1\" width=\"20\"/></cols><sheetData><row r=\"1\" spans=\"1:2\"><c "
        "r=\"A1\" "
        "s=\"7\"><v>1</v></c><c r=\"B1\"><v>2</v></c></row></sheetData>";
    const std::string other =
        "<sheetData><row r=\"1\"><c r=\"A1\"><f t=\"shared\" si=\"0\" ref=\"A1:B1\">Data!A9</f></c>"
        "<c r=\"B1\"><f t=\"shared\" si=\"0\"/></c></row></sheetData>";
    const std::string names =
        "<definedName name=\"All\">Data!$B$1</definedName><definedName name=\"Own\" localSheetId=\"0\">$B$1"
        "</definedName><definedName name=\"Others\" localSheetId=\"1\">$B$1</definedName>";
    opc::Package package =
        workbookPackage({{"Data", own}, {"Other", other}}, "<definedNames>" + names + "</definedNames>");
    shiftLines(package, "Data", {Axis::Columns, 2, 1});
    EXPECT_THAT(
        package.readPart(sheetPart(1)),
        HasSubstr("<cols><col min=\"1\" max=\"2\" width=\"20\"/></cols><sheetData><row r=\"1\">"
                  "<c r=\"A1\" s=\"7\"><v>1</v></c><c r=\"B1\" s=\"7\"/><c r=\"C1\"><v>2</v></c></row>"));
    EXPECT_THAT(package.readPart(sheetPart(2)),
                HasSubstr("<c r=\"A1\"><f>Data!A9</f></c><c r=\"B1\"><f>Data!C9</f></c>"));
    const std::string book = package.readPart(kWorkbookPart);
    for (const char* name : {"\"All\">Data!$C$1<", "localSheetId=\"0\">$C$1<", "localSheetId=\"1\">$B$1<"})
        EXPECT_THAT(book, HasSubstr(name));
}

/// A table in A2:C5, with the header in the row 2, or with a row of totals below it, too.
struct TableCase {
    LineShift shift;
    std::string plain;  ///< its area afterwards, or "refused"
    std::string withTotals;
};

TEST(ShiftedBookTest, ChangesTheRecordsOfTablesOnly) {
    const std::vector<TableCase> cases{
        {{Axis::Rows, 1, 2}, "A4:C7", "A4:C8"},        {{Axis::Rows, 2, 1}, "A3:C6", "A3:C7"},
        {{Axis::Rows, 3, 1}, "A2:C6", "A2:C7"},        {{Axis::Rows, 5, 1}, "A2:C6", "A2:C7"},
        {{Axis::Rows, 6, 1}, "A2:C5", "A2:C7"},        {{Axis::Rows, 7, 1}, "A2:C5", "A2:C6"},
        {{Axis::Rows, 1, -1}, "A1:C4", "A1:C5"},       {{Axis::Rows, 1, -2}, "refused", "refused"},
        {{Axis::Rows, 2, -1}, "refused", "refused"},   {{Axis::Rows, 3, -1}, "A2:C4", "A2:C5"},
        {{Axis::Rows, 4, -2}, "A2:C3", "A2:C4"},       {{Axis::Rows, 3, -3}, "refused", "refused"},
        {{Axis::Rows, 5, -2}, "refused", "refused"},   {{Axis::Rows, 6, -1}, "A2:C5", "refused"},
        {{Axis::Rows, 7, -1}, "A2:C5", "A2:C6"},       {{Axis::Columns, 1, 1}, "B2:D5", "B2:D6"},
        {{Axis::Columns, 2, 1}, "refused", "refused"}, {{Axis::Columns, 3, -1}, "refused", "refused"},
        {{Axis::Columns, 4, 1}, "A2:C5", "A2:C6"},
    };
    const auto areaAfter = [](const std::string& attributes, const LineShift& shift) {
        const std::string after = shifted({"table", "<table " + attributes + "/>", shift, ""});
        if (after.starts_with("refused: rows or columns of a table were")) return std::string("refused");
        const std::size_t start = after.find('"') + 1;
        return after.substr(start, after.find('"', start) - start);
    };
    for (const TableCase& each : cases) {
        const std::string what = std::to_string(each.shift.at) + " " + std::to_string(each.shift.count);
        EXPECT_EQ(areaAfter("ref=\"A2:C5\"", each.shift), each.plain) << what;
        EXPECT_EQ(areaAfter("ref=\"A2:C6\" totalsRowCount=\"1\"", each.shift), each.withTotals) << what;
    }
    EXPECT_EQ(areaAfter("ref=\"A2:C5\" headerRowCount=\"0\"", {Axis::Rows, 2, -1}), "A2:C4");
}

TEST(ShiftedBookTest, RefusesTheDataOfPivotTables) {
    for (const std::string sheet : {"DATA", "Other"}) {
        opc::Package package = workbookPackage({{"Data"}, {"Other"}});
        package.addPart(
            "/xl/pivotCache/pivotCacheDefinition1.xml", "application/xml",
            "<p><cacheSource><worksheetSource ref=\"A1:B9\" sheet=\"" + sheet + "\"/></cacheSource></p>");
        if (sheet == "DATA")
            EXPECT_THROW(shiftLines(package, "Data", kRowInserted), Refusal);
        else
            EXPECT_NO_THROW(shiftLines(package, "Data", kRowInserted));
    }
}

}  // namespace

}  // namespace mergeloom::graft
