#include "books/BookTest.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

using testing::HasSubstr;
using testing::Not;

/// A workbook with captions in row 1, the fields X and Y of lines in row 2, and the test's rows below.
class BookRows : public BookTest {
  protected:
    BookRows() {
        names("ammLines", "$A$1:$B$2");
        names("ammLinesX", "$A$2");
        names("ammLinesY", "$B$2");
        lists("ammLines", {"Lines"});
        takes("ammLinesX", {{"Lines", "X"}});
        takes("ammLinesY", {{"Lines", "Y"}});
        takes("ammNo", {{"No"}});
    }

    [[nodiscard]] std::string sheet(const std::string& rowsBelow, const std::string& after = "",
                                    const std::string& inRow = "") const {
        return "<sheetData>" + sheetRow(1, textCell("A1", "X") + textCell("B1", "Y")) +
               sheetRow(2, textCell("A2", "[X]", " s=\"1\"") + textCell("B2", "[Y]") + inRow, " ht=\"20\"") +
               rowsBelow + "</sheetData>" + after;
    }
    static std::vector<Record> order(int lines) {
        std::vector<Record> records;
        for (int number = 1; number <= lines; ++number) {
            const std::string text = std::to_string(number);
            records.push_back({{bound("X", text, text), shown("Y", "y" + text)}});
        }
        return {{{subform("Lines", records), shown("No", "7")}}};
    }
    std::string refusal(const std::string& file) {
        try {
            compiled(file);
        } catch (const AutomationError& error) {
            return error.description();
        }
        return {};
    }
};

TEST_F(BookRows, RepeatWithTheirFormatAndMoveWhatIsBelow) {
    names("ammNo", "$B$4");
    const std::string below = sheetRow(3, formulaCell("A3", "SUM(A2)") + formulaCell("B3", "A2*2")) +
                              sheetRow(4, textCell("B4", "[No]"));
    const std::string file =
        workbookFile({{"Sheet1", sheet(below, "", formulaCell("C2", "A2*$A$4"))}}, allNames());
    EXPECT_EQ(shownRows(filled(file, order(3))),
              "<1><A1>X<B1>Y\n"
              "<2 ht=\"20\"><A2 s=\"1\">#1<B2>y1<C2>=A2*$A$6\n"
              "<3 ht=\"20\"><A3 s=\"1\">#2<B3>y2<C3>=A3*$A$6\n"
              "<4 ht=\"20\"><A4 s=\"1\">#3<B4>y3<C4>=A4*$A$6\n"
              "<5><A5>=SUM(A2:A4)<B5>=A2*2\n"
              "<6><B6>7");
}

TEST_F(BookRows, WithoutRecordsAreEmptyAndHidden) {
    const std::string file =
        workbookFile({{"Sheet1", sheet(sheetRow(3, formulaCell("A3", "SUM(A2:A2)")))}}, allNames());
    EXPECT_EQ(shownRows(filled(file, order(0))),
              "<1><A1>X<B1>Y\n<2 ht=\"20\" hidden=\"1\"><A2 s=\"1\"><B2>\n<3><A3>=SUM(A2:A2)");
    settings.emptyTables = letters::EmptyTables::Remove;
    EXPECT_THAT(shownRows(filled(file, order(0))), HasSubstr("<1 hidden=\"1\"><A1>X"));
}

TEST_F(BookRows, OfAFilledWorkbookAreFilledAgain) {
    const std::string below = sheetRow(3, formulaCell("A3", "SUM(A2:A2)+Sheet2!A1"));
    const std::string merges =
        "<mergeCells count=\"2\"><mergeCell ref=\"A3:B3\"/><mergeCell ref=\"C2:D2\"/></mergeCells>";
    const std::string file = workbookFile(
        {{"Sheet1", sheet(below, merges)},
         {"Sheet2", "<sheetData>" + sheetRow(1, formulaCell("A1", "Sheet1!A3")) + "</sheetData>"}},
        allNames());
    for (const auto emptyTables : {letters::EmptyTables::KeepCaptions, letters::EmptyTables::Remove}) {
        settings.emptyTables = emptyTables;
        for (const int before : {0, 1, 4}) {
            for (const int after : {0, 1, 3}) {
                const std::string again = filled(filled(file, order(before)), order(after));
                const std::string once = filled(file, order(after));
                for (const std::string& part : {kWorkbookPart, sheetPart(1), sheetPart(2)})
                    EXPECT_EQ(partOf(again, part), partOf(once, part)) << before << " then " << after;
            }
        }
    }
}

TEST_F(BookRows, MoveEverythingThatRefersToRowsBelow) {
    definedNames +=
        "<definedName name=\"Foot\">Sheet1!$A$3</definedName>"
        "<definedName name=\"_xlnm.Print_Area\" localSheetId=\"0\">Sheet1!$A$1:$B$3</definedName>";
    const std::string after =
        "<mergeCells count=\"1\"><mergeCell ref=\"A3:B3\"/></mergeCells>"
        "<conditionalFormatting sqref=\"A2 A3:A4\"><cfRule type=\"expression\" priority=\"1\">"
        "<formula>A2&gt;$A$3</formula></cfRule></conditionalFormatting>"
        "<dataValidations count=\"1\"><dataValidation type=\"list\" "
        "sqref=\"B2\"><formula1>$A$3:$A$4</formula1>"
        "</dataValidation></dataValidations>"
        "<hyperlinks><hyperlink ref=\"A3\" location=\"x\"/></hyperlinks>"
        "<rowBreaks count=\"2\"><brk id=\"2\" man=\"1\"/><brk id=\"3\" man=\"1\"/></rowBreaks>"
        "<colBreaks count=\"1\"><brk id=\"3\" man=\"1\"/></colBreaks>"
        "<ignoredErrors><ignoredError sqref=\"A1:B3\"/></ignoredErrors>";
    const std::string file =
        workbookFile({{"Sheet1", sheet(sheetRow(3, textCell("A3", "foot")), after)}}, allNames());
    const std::string book = filled(file, order(3));
    const std::string xml = partOf(book, sheetPart(1));
    const std::string moved =
        "<mergeCells count=\"1\"><mergeCell ref=\"A5:B5\"/></mergeCells>"
        "<conditionalFormatting sqref=\"A2:A4 A5:A6\"><cfRule type=\"expression\" priority=\"1\">"
        "<formula>A2&gt;$A$5</formula></cfRule></conditionalFormatting>"
        "<dataValidations count=\"1\"><dataValidation type=\"list\" "
        "sqref=\"B2:B4\"><formula1>$A$5:$A$6</formula1>"
        "</dataValidation></dataValidations>"
        "<hyperlinks><hyperlink ref=\"A5\" location=\"x\"/></hyperlinks>"
        "<rowBreaks count=\"2\"><brk id=\"4\" man=\"1\"/><brk id=\"5\" man=\"1\"/></rowBreaks>"
        "<colBreaks count=\"1\"><brk id=\"3\" man=\"1\"/></colBreaks>"
        "<ignoredErrors><ignoredError sqref=\"A1:B5\"/></ignoredErrors>";
    EXPECT_THAT(xml, HasSubstr(moved));
    const std::string workbook = partOf(book, kWorkbookPart);
    for (const char* const name :
         {"ammLines\">Sheet1!$A$1:$B$4<", "ammLinesX\">Sheet1!$A$2:$A$4<", "Foot\">Sheet1!$A$5<",
          "localSheetId=\"0\">Sheet1!$A$1:$B$5<", "_MergeloomRows1\" hidden=\"1\">Sheet1!$3:$4<"}) {
        EXPECT_THAT(workbook, HasSubstr(name));
    }
}

TEST_F(BookRows, OfTablesSideBySideAreShared) {
    names("ammOthers", "$D$1:$D$2");
    names("ammOthersZ", "$D$2");
    lists("ammOthers", {"Others"});
    takes("ammOthersZ", {{"Others", "Z"}});
    const std::string file = workbookFile({{"Sheet1", sheet("", "", textCell("D2", "[Z]"))}}, allNames());
    std::vector<Record> records = order(2);
    records.front().controls.push_back(subform("Others", {{{shown("Z", "z")}}}));
    EXPECT_THAT(shownRows(filled(file, records)), HasSubstr("<D2>z\n<3 ht=\"20\"><A3 s=\"1\">#2<B3>y2<D3>"));
}

TEST_F(BookRows, OfPatternsWithSeveralRowsRepeatAsABlock) {
    names("ammLinesZ", "$A$3");
    takes("ammLinesZ", {{"Lines", "Z"}});
    definedNames.replace(definedNames.find("$A$1:$B$2"), 9, "$A$1:$B$3");
    const std::string merge = "<mergeCells count=\"1\"><mergeCell ref=\"A3:B3\"/></mergeCells>";
    const std::string rows =
        sheetRow(3, textCell("A3", "[Z]")) + sheetRow(4, formulaCell("A4", "SUM(A2:B3)"));
    const std::string book = filled(workbookFile({{"Sheet1", sheet(rows, merge)}}, allNames()), order(2));
    EXPECT_THAT(shownRows(book),
                HasSubstr("<A2 s=\"1\">#1<B2>y1\n<3><A3>\n<4 ht=\"20\"><A4 s=\"1\">#2<B4>y2\n"
                          "<5><A5>\n<6><A6>=SUM(A2:B5)"));
    EXPECT_THAT(partOf(book, sheetPart(1)),
                HasSubstr("<mergeCell ref=\"A3:B3\"/><mergeCell ref=\"A5:B5\"/>"));
}

TEST_F(BookRows, ListTheRecordsThemselvesInATableOfTheObject) {
    names("ammOrdersT", "$A$1:$B$2");
    lists("ammOrdersT", {});
    sources.tables.erase("ammlines");
    takes("ammLinesX", {{"X"}});
    takes("ammLinesY", {{"Y"}});
    const auto letters = compiled(workbookFile({{"Sheet1", sheet("")}}, allNames()));
    EXPECT_TRUE(letters->listsRecords());
    const std::vector<Record> records{{{shown("X", "a")}}, {{shown("X", "b")}}};
    files.save("/book.xlsx", [&](ByteSink& sink) { letters->write(records, sink); });
    EXPECT_EQ(shownRows(files.files["/book.xlsx"]),
              "<1><A1>X<B1>Y\n<2 ht=\"20\"><A2 s=\"1\">a<B2>\n<3 ht=\"20\"><A3 s=\"1\">b<B3>");
}

TEST_F(BookRows, AreRefusedWhereSomethingIsInTheWay) {
    struct Case {
        std::string rows;
        std::string after;
        std::string sentence;
    };
    const std::string array = "<c r=\"C2\"><f t=\"array\" ref=\"C2:C3\">A2:A3</f></c>";
    const std::vector<Case> cases{
        {"", "<sheetProtection sheet=\"1\"/>", "the sheet 'Sheet1' is protected."},
        {"", "<mergeCells count=\"1\"><mergeCell ref=\"C2:C3\"/></mergeCells>",
         "the merged cells C2:C3 reach out of them."},
        {array, "", "the array formula in C2:C3 would be torn."},
    };
    for (const Case& each : cases) {
        const std::string file = workbookFile({{"Sheet1", sheet("", each.after, each.rows)}}, allNames());
        EXPECT_EQ(
            refusal(file),
            "The template '/template.xlsx' cannot be filled: rows of a table cannot be repeated, because " +
                each.sentence);
    }
}

/// Tables of nested subforms cannot be repeated, nor can tables that share cells.
TEST_F(BookRows, AreRefusedWhereTablesOverlap) {
    takes("ammInnerP", {{"Lines", "Parts", "P"}});
    names("ammInner", "$B$2:$C$2");
    names("ammInnerP", "$C$2");
    const std::string file = workbookFile({{"Sheet1", sheet("", "", textCell("C2", "[P]"))}}, allNames());
    for (const letters::ControlPath& path :
         {letters::ControlPath{"Lines", "Parts"}, letters::ControlPath{"Lines"}}) {
        lists("ammInner", path);
        EXPECT_THAT(refusal(file), HasSubstr("because the tables ammLines and ammInner overlap."));
    }
}

TEST_F(BookRows, OfExcelTablesGrowTheTable) {
    struct Case {
        std::string area;
        std::string result;
        std::string sentence;
    };
    for (const Case& each : std::vector<Case>{{"A1:B2", "ref=\"A1:B4\"", ""},
                                              {"D5:E6", "ref=\"D7:E8\"", ""},
                                              {"D1:E4", "", "the table 'T' is beside or across them."},
                                              {"A2:B3", "", "the table 'T' is beside or across them."}}) {
        opc::Package package = workbookPackage({{"Sheet1", sheet("")}}, allNames());
        package.addPart("/xl/tables/table1.xml", kSpreadsheetType + "table+xml",
                        "<table xmlns=\"" + kSpreadsheet + "\" id=\"1\" displayName=\"T\" ref=\"" +
                            each.area + "\"><autoFilter ref=\"" + each.area + "\"/></table>");
        package.relationshipsOf(sheetPart(1)).addPart(officeType("table"), "/xl/tables/table1.xml");
        const std::string file = packageBytes(package);
        if (!each.sentence.empty()) {
            EXPECT_THAT(refusal(file), HasSubstr(each.sentence)) << each.area;
            continue;
        }
        const std::string table = partOf(filled(file, order(3)), "/xl/tables/table1.xml");
        EXPECT_THAT(table, HasSubstr(each.result + "><autoFilter " + each.result)) << each.area;
    }
}

TEST_F(BookRows, MoveDrawingsNotesAndCharts) {
    opc::Package package = workbookPackage({{"Sheet1", sheet("")}}, allNames());
    struct Part {
        const char* name;
        const char* type;
        const char* xml;
        const char* moved;
    };
    const std::vector<Part> parts{
        {"/xl/drawings/drawing1.xml", "drawing",
         "<d:wsDr xmlns:d='u'><d:twoCellAnchor><d:from><d:row>1</d:row></d:from><d:to><d:row>4</d:row></d:to>"
         "</d:twoCellAnchor></d:wsDr>",
         "<d:from><d:row>1</d:row></d:from><d:to><d:row>6</d:row></d:to>"},
        {"/xl/comments1.xml", "comments",
         "<comments><commentList><comment ref='A3'/></commentList></comments>", "<comment ref='A5'/>"},
        {"/xl/vml.vml", "vmlDrawing",
         "<xml xmlns:x='u'><x:ClientData><x:Anchor> 1, 2, 2, 4, 5, 6, 7, "
         "8</x:Anchor><x:Row>2</x:Row></x:ClientData></xml>",
         "<x:Anchor> 1, 2, 4, 4, 5, 6, 9, 8</x:Anchor><x:Row>4</x:Row>"},
    };
    for (const Part& part : parts) {
        package.addPart(part.name, "application/xml", part.xml);
        package.relationshipsOf(sheetPart(1)).addPart(officeType(part.type), part.name);
    }
    package.addPart(
        "/xl/charts/chart1.xml", "application/xml",
        "<c:chart "
        "xmlns:c='u'><c:f>Sheet1!$A$2:$A$2</c:f><c:f>Sheet1!$B$2</c:f><c:f>Sheet1!$A$9</c:f></c:chart>");
    package.relationshipsOf(parts.front().name).addPart(officeType("chart"), "/xl/charts/chart1.xml");
    const std::string book = filled(packageBytes(package), order(3));
    for (const Part& part : parts)
        EXPECT_THAT(partOf(book, part.name), HasSubstr(part.moved));
    EXPECT_THAT(partOf(book, "/xl/charts/chart1.xml"),
                HasSubstr("<c:f>Sheet1!$A$2:$A$4</c:f><c:f>Sheet1!$B$2:$B$4</c:f><c:f>Sheet1!$A$11</c:f>"));
}

TEST_F(BookRows, TakeFormulasOutOfTheCalculationChain) {
    opc::Package package =
        workbookPackage({{"Sheet1", sheet(sheetRow(3, formulaCell("A3", "SUM(A2:A2)")))}}, allNames());
    package.addPart("/xl/calcChain.xml", "application/xml", "<calcChain><c r='A3' i='1'/></calcChain>");
    package.relationshipsOf(kWorkbookPart).addPart(officeType("calcChain"), "/xl/calcChain.xml");
    opc::Package book = opc::Package::read(filled(packageBytes(package), order(2)), "book.xlsx");
    EXPECT_FALSE(book.hasPart("/xl/calcChain.xml"));
    EXPECT_EQ(book.relatedPart(kWorkbookPart, "calcChain"), "");
    EXPECT_THAT(book.readPart(sheetPart(1)), Not(HasSubstr("<v>1</v></c></row></sheetData>")));
}

TEST_F(BookRows, ThatAreTooManyForASheetAreRefused) {
    names("ammNo", "$A$1048576");
    const std::string file = workbookFile({{"Sheet1", sheet("")}}, allNames());
    EXPECT_NO_THROW(filled(file, order(1)));
    EXPECT_THROW(filled(file, order(2)), AutomationError);
}

}  // namespace
}  // namespace mergeloom
