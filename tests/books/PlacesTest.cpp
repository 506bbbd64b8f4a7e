#include "books/BookTest.h"
#include "office/embedded/books/CellValue.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

using embedded::CellValue;
using embedded::DateSystem;
using embedded::NumberFormat;
using letters::ValueKind;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(CellValue, OfWhatADatabaseStores) {
    using Kind = CellValue::Kind;
    struct Case {
        std::string stored;
        Kind kind;
        std::string text;
        DateSystem dates = DateSystem::From1900;
    };
    const std::vector<Case> cases{
        {"18.4", Kind::Number, "18.4"},
        {"-1", Kind::Number, "-1"},
        {"0.5", Kind::Number, "0.5"},
        {"123456789012345", Kind::Number, "123456789012345"},
        {"1234567890123456", Kind::Text, "1234567890123456"},
        {"007", Kind::Text, "007"},
        {"1.", Kind::Text, "1."},
        {"1,5", Kind::Text, "1,5"},
        {"=1+1", Kind::Text, "=1+1"},
        {"True", Kind::Boolean, "1"},
        {"false", Kind::Boolean, "0"},
        {"2024-05-14", Kind::Date, "45426"},
        {"2024-05-14", Kind::Date, "43964", DateSystem::From1904},
        {"2024-05-14T12:00:00", Kind::DateAndTime, "45426.5"},
        {"2024-05-14 06:00", Kind::DateAndTime, "45426.25"},
        {"1900-02-28", Kind::Date, "59"},
        {"1900-03-01", Kind::Date, "61"},
        {"1899-12-31", Kind::Text, "1899-12-31"},
        {"1903-12-31", Kind::Text, "1903-12-31", DateSystem::From1904},
        {"2023-02-29", Kind::Text, "2023-02-29"},
        {"2024-05-14x", Kind::Text, "2024-05-14x"},
        {"2024-05-14T25:00", Kind::Text, "2024-05-14T25:00"},
        {"", Kind::Empty, ""},
    };
    for (const Case& each : cases) {
        const CellValue value = embedded::readStored(each.stored, each.dates);
        EXPECT_EQ(value.kind, each.kind) << each.stored;
        EXPECT_EQ(value.text, each.text) << each.stored;
    }
}

TEST(CellValue, OfAPlaceIsWhatTheDatabaseShows) {
    using Kind = CellValue::Kind;
    struct Case {
        std::string display;
        std::string stored;
        ValueKind value;
        NumberFormat format;
        Kind kind;
        std::string text;
    };
    const auto general = NumberFormat::General;
    const auto display = ValueKind::Display;
    const std::vector<Case> cases{
        {"Urgent", "2", display, general, Kind::Text, "Urgent"},
        {"Urgent", "2", ValueKind::Bound, general, Kind::Number, "2"},
        {"Urgent", "2", ValueKind::Bound, NumberFormat::Text, Kind::Text, "2"},
        {"18.40", "18.4", display, general, Kind::Number, "18.4"},
        {"1.179,30", "1179.3", display, general, Kind::Number, "1179.3"},
        {"1,179", "1179.3", display, general, Kind::Number, "1179.3"},
        {"18.40", "18.5", display, general, Kind::Text, "18.40"},
        {"18.40", "18.4", display, NumberFormat::Text, Kind::Text, "18.40"},
        {"14 May 2024", "2024-05-14", display, general, Kind::Date, "45426"},
        {"5/14/24", "2024-05-14", display, general, Kind::Date, "45426"},
        {"Week 20 of 2024", "2024-05-14", display, general, Kind::Text, "Week 20 of 2024"},
        {"12", "", display, general, Kind::Text, "12"},
        {"12", "", display, NumberFormat::Other, Kind::Number, "12"},
        {"12 kg", "", display, NumberFormat::Other, Kind::Text, "12 kg"},
        {"true", "true", display, general, Kind::Boolean, "1"},
        {"Yes", "true", display, general, Kind::Text, "Yes"},
        {"", "5", display, general, Kind::Empty, ""},
        {"5", "", ValueKind::Bound, general, Kind::Empty, ""},
    };
    for (const Case& each : cases) {
        const CellValue value = embedded::cellValueOf(bound("C", each.display, each.stored), each.value,
                                                      each.format, DateSystem::From1900);
        EXPECT_EQ(value.kind, each.kind) << each.display << '/' << each.stored;
        EXPECT_EQ(value.text, each.text) << each.display << '/' << each.stored;
    }
}

TEST_F(BookTest, PlacesTakeTypedValuesInTheFormatOfTheirCells) {
    for (const char* name : {"A", "B", "C", "D", "E"})
        names(std::string("amm") + name, "$" + std::string(name) + "$1");
    takes("ammA", {{"A"}});
    takes("ammB", {{"B"}, ValueKind::Bound});
    takes("ammC", {{"C"}});
    takes("ammD", {{"D"}});
    takes("ammE", {{"Sub", "E"}});
    const std::string file =
        workbookFile({{"Sheet1", "<sheetData>" +
                                     sheetRow(1, textCell("A1", "[A]") + textCell("B1", "[B]", " s=\"3\"") +
                                                     formulaCell("C1", "1+1") + textCell("D1", "[D]")) +
                                     "</sheetData>"}},
                     allNames());
    const std::string book = filled(file, {{{shown("A", "=1<2"), bound("B", "x", "18.4"), shown("C", "07"),
                                             subform("Sub", {{{shown("E", "e")}}})}}});
    EXPECT_EQ(shownRows(book), "<1><A1>=1&lt;2<B1 s=\"3\">#18.4<C1>07<D1><E1>e");
}

/// The formats 0 and 49 are the standard's General and Text, those from 164 on a workbook's own.
TEST_F(BookTest, TheFormatOfACellDecidesHowItsValueIsStored) {
    std::string cells, formats;
    const std::string columns = "ABCDE";
    const int numberFormats[] = {0, 49, 2, 164, 165};
    for (std::size_t index = 0; index < columns.size(); ++index) {
        const std::string column(1, columns[index]);
        names("amm" + column, "$" + column + "$1");
        takes("amm" + column, {{"Price"}});
        cells += textCell(column + "1", "[Price]", " s=\"" + std::to_string(index) + "\"");
        formats += "<xf numFmtId=\"" + std::to_string(numberFormats[index]) + "\"/>";
    }
    opc::Package package =
        workbookPackage({{"Sheet1", "<sheetData>" + sheetRow(1, cells) + "</sheetData>"}}, allNames());
    package.addPart("/xl/styles.xml", kSpreadsheetType + "styles+xml",
                    "<styleSheet xmlns=\"" + kSpreadsheet +
                        "\"><numFmts><numFmt numFmtId=\"164\" formatCode=\"@\"/><numFmt numFmtId=\"165\" "
                        "formatCode=\"General\"/></numFmts><cellXfs>" +
                        formats + "</cellXfs></styleSheet>");
    package.relationshipsOf(kWorkbookPart).addPart(officeType("styles"), "/xl/styles.xml");
    const std::string book = filled(packageBytes(package), {{{bound("Price", "18.40", "18.4")}}});
    EXPECT_EQ(shownRows(book),
              "<1><A1>#18.4<B1 s=\"1\">18.40<C1 s=\"2\">#18.4<D1 s=\"3\">18.40<E1 s=\"4\">#18.4");
}

TEST_F(BookTest, UntouchedPartsStayByteForByte) {
    names("ammA", "$A$1");
    takes("ammA", {{"A"}});
    const std::string other = "<sheetData ><row r='1'><c r='A1'><v>7</v></c></row></sheetData>";
    const std::string file = workbookFile(
        {{"Sheet1", "<sheetData>" + sheetRow(1, textCell("A1", "[A]")) + "</sheetData>"}, {"Other", other}},
        allNames());
    const std::string book = filled(file, {{{shown("A", "a")}}});
    for (const std::string& part : {kWorkbookPart, sheetPart(2)})
        EXPECT_EQ(partOf(book, part), partOf(file, part)) << part;
}

TEST_F(BookTest, ResultsOfFormulasAreCalculatedAgain) {
    names("ammA", "$A$1");
    takes("ammA", {{"A"}});
    const std::string formulas = sheetRow(1, formulaCell("B1", "Sheet1!A1"));
    const std::string file =
        workbookFile({{"Sheet1", "<sheetData>" + sheetRow(1, textCell("A1", "[A]")) + "</sheetData>"},
                      {"Other", "<sheetData>" + formulas + "</sheetData>"}},
                     allNames());
    const std::string book = filled(file, {{{shown("A", "a")}}});
    EXPECT_EQ(shownRows(book, 2), "<1><B1>=Sheet1!A1");
    EXPECT_THAT(partOf(book, kWorkbookPart), HasSubstr("fullCalcOnLoad=\"1\""));
}

TEST_F(BookTest, PlacesThatCannotBeWrittenAreTold) {
    names("ammA", "$A$1");
    definedNames += "<definedName name=\"ammB\">#REF!</definedName>";
    takes("ammA", {{"A"}});
    takes("ammB", {{"B"}});
    const std::string array = "<c r=\"A1\"><f t=\"array\" ref=\"A1:A2\">B1:B2</f></c>";
    const std::string file =
        workbookFile({{"Sheet1", "<sheetData>" + sheetRow(1, array) +
                                     sheetRow(2, "<c r=\"A2\"><v>1</v></c>") + "</sheetData>"}},
                     allNames());
    const auto letters = compiled(file);
    EXPECT_THAT(letters->refusals(),
                ElementsAre("The name ammB refers to no cells.", HasSubstr("is part of an array formula")));
    EXPECT_TRUE(letters->filledPlaces().empty());
}

TEST_F(BookTest, RichTextIsPlainInCells) {
    names("ammA", "$A$1");
    takes("ammA", {{"A"}});
    struct Case {
        std::string rich;
        std::string plain;
        std::string shown;
        int remarks;
    };
    const std::vector<Case> cases{
        {"<b>x</b>", "y", "y", 0},
        {"<b>x</b> &amp; y", "", "x &amp; y", 0},
        {"<p>x</p><ol><li>y</li><li>z</li></ol><ul><li>u</li></ul>", "", "x\n1. y\n2. z\n\u2022 u", 0},
        {"<i></i>", "", "", 0},
        {"<b>x</i> y", "", "x y", 1},
    };
    for (const Case& c : cases) {
        const auto letters = compiled(workbookFile({{"Sheet1"}}, allNames()));
        const Record record{{{.name = "A", .richText = c.rich, .plainText = c.plain, .records = {}}}};
        files.save("/book.xlsx", [&](ByteSink& sink) { letters->write({&record, 1}, sink); });
        EXPECT_EQ(shownRows(files.files["/book.xlsx"]), "<1><A1>" + c.shown) << c.rich;
        EXPECT_EQ(static_cast<int>(letters->remarks().size()), c.remarks) << c.rich;
    }
}

TEST_F(BookTest, TextsTooLongForACellAreCutAndTold) {
    names("ammA", "$A$1");
    takes("ammA", {{"A"}});
    const std::string file = workbookFile({{"Sheet1"}}, allNames());
    const auto letters = compiled(file);
    const Record record{{shown("A", std::string(32768, 'x'))}};
    files.save("/book.xlsx", [&](ByteSink& sink) { letters->write({&record, 1}, sink); });
    EXPECT_EQ(shownRows(files.files["/book.xlsx"]), "<1><A1>" + std::string(32767, 'x'));
    EXPECT_THAT(letters->remarks(), ElementsAre(HasSubstr("A value of A is longer")));
    // The text is not cut inside a character, and is not too long.
    const Record wide{{shown("A", std::string(32766, 'x') + "\U0001F600")}};
    files.save("/book.xlsx", [&](ByteSink& sink) { letters->write({&wide, 1}, sink); });
    EXPECT_EQ(shownRows(files.files["/book.xlsx"]), "<1><A1>" + std::string(32766, 'x'));
}

}  // namespace
}  // namespace mergeloom
