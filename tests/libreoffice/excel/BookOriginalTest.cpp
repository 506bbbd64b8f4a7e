#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "base/Text.h"
#include "doubles/TemporaryFolder.h"
#include "droppers/ExcelDropTest.h"
#include "libreoffice/word/SharedOffice.h"
#include "office/embedded/excel/EmbeddedExcel.h"
#include "office/graft/PackageGraft.h"
#include "office/libreoffice/excel/CalcHosting.h"
#include "office/libreoffice/excel/CalcOffice.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/OfficeDocument.h"
#include "office/opc/ZipReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/table/XTableColumns.hpp>
#include <com/sun/star/table/XTableRows.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <com/sun/star/text/XTextCursor.hpp>
#include <com/sun/star/util/XMergeable.hpp>
#include <functional>

namespace mergeloom {

namespace {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

const std::string kForm =
    "<db><Form Name='F'><Control Name='City' Caption='Town'/><Control Name='Street' Caption='Street'/>"
    "</Form></db>";

/// Returns a workbook with parts that LibreOffice would remove or change: colours of a theme, its attributes,
/// a calculation chain, and custom data.
std::string originalBook() {
    opc::Package package = workbookPackage(
        {{.name = "Sheet1",
          .xml = "<sheetData><row r=\"1\" spans=\"1:3\"><c r=\"A1\" s=\"1\"><v>2</v></c><c r=\"B1\" cm=\"0\">"
                 "<f>A1*2</f><v>4</v></c></row></sheetData><ignoredErrors><ignoredError sqref=\"A1\" "
                 "numberStoredAsText=\"1\"/></ignoredErrors>"}},
        "<definedNames><definedName name=\"Kept\" comment=\"a "
        "remark\">Sheet1!$A$1</definedName></definedNames>");
    const auto add = [&](const std::string& kind, const std::string& name, const std::string& children,
                         const std::string& root) {
        package.addPart(name, kSpreadsheetType + kind + "+xml",
                        "<" + root + " xmlns=\"" + kSpreadsheet + "\">" + children + "</" + root + ">");
        package.relationshipsOf(kWorkbookPart).addPart(officeType(kind), name);
    };
    add("styles", "/xl/styles.xml",
        "<fonts count=\"1\"><font><sz val=\"11\"/><color theme=\"4\"/><name val=\"Calibri\"/><scheme "
        "val=\"minor\"/></font></fonts><fills count=\"1\"><fill><patternFill "
        "patternType=\"none\"/></fill></fills>"
        "<borders count=\"1\"><border/></borders><cellStyleXfs count=\"1\"><xf fontId=\"0\"/></cellStyleXfs>"
        "<cellXfs count=\"2\"><xf fontId=\"0\"/><xf numFmtId=\"2\" fontId=\"0\" "
        "applyNumberFormat=\"1\"/></cellXfs>"
        "<cellStyles count=\"1\"><cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/></cellStyles>",
        "styleSheet");
    add("calcChain", "/xl/calcChain.xml", "<c r=\"B1\" i=\"1\"/>", "calcChain");
    package.addPart("/customXml/item1.xml", "application/xml", "<data xmlns=\"urn:ours\">kept</data>");
    package.relationshipsOf(kWorkbookPart).addPart(officeType("customXml"), "/customXml/item1.xml");
    return packageBytes(package);
}

std::vector<std::string> changedEntries(const std::string& before, const std::string& after) {
    const opc::ZipReader former(before, "before");
    const opc::ZipReader now(after, "after");
    std::map<std::string, std::string_view> entries;
    for (const opc::ZipEntry& entry : former.entries())
        entries[entry.name] = entry.raw;
    std::vector<std::string> changed;
    for (const opc::ZipEntry& entry : now.entries()) {
        const auto found = entries.find(entry.name);
        if (found == entries.end() || found->second != entry.raw) changed.push_back(entry.name);
        if (found != entries.end()) entries.erase(found);
    }
    for (const auto& [name, raw] : entries)
        changed.push_back(name);
    std::ranges::sort(changed);
    return changed;
}

/// A sheet with six rows of three columns and a sum, and an element that only the original has.
std::string longBook() {
    opc::Package package = opc::Package::read(originalBook(), "book");
    std::string rows;
    for (int row = 1; row <= 6; ++row) {
        const std::string number = std::to_string(row);
        const auto cell = [&](const std::string& column, const std::string& content) {
            return std::string("<c r=\"").append(column).append(number).append("\"").append(content).append(
                "</c>");
        };
        rows += "<row r=\"" + number + "\">" + cell("A", " s=\"1\"><v>" + number + "</v>") +
                cell("B", "><v>" + number + "0</v>") + cell("C", "><v>" + number + "00</v>") +
                cell("D", "><f>A" + number + "*2</f><v>" + std::to_string(2 * row) + "</v>") + "</row>";
    }
    rows += "<row r=\"7\"><c r=\"A7\"><f>SUM(A1:A6)</f><v>21</v></c></row>";
    package.writePart(sheetPart(1), "<worksheet xmlns=\"" + kSpreadsheet +
                                        "\" xmlns:x=\"urn:ours\"><sheetData>" + rows +
                                        "</sheetData><x:mine sqref=\"B3 B7\"/></worksheet>");
    package.removePart("/xl/calcChain.xml");
    package.writePart(kWorkbookPart, replaceAll(package.readPart(kWorkbookPart), "$A$1", "$A$2"));
    return packageBytes(package);
}

/// Two sheets of dates with formulas that have no results, as libraries write them.
std::string bookWithPendingFormulas() {
    opc::Package package = opc::Package::read(originalBook(), "book");
    const std::string sheet = "<worksheet xmlns=\"" + kSpreadsheet +
                              "\"><sheetFormatPr defaultRowHeight=\"15\"/><sheetData><row r=\"1\"><c "
                              "r=\"A1\" s=\"1\"><v>1</v></c><c r=\"B1\"><f>A1+1</f><v/></c></row>"
                              "<row r=\"2\"><c r=\"A2\" s=\"1\"><v>2</v></c><c "
                              "r=\"B2\"><f>MAX(A1:A2)</f><v/></c></row></sheetData></worksheet>";
    package.writePart(sheetPart(1), sheet);
    package.addPart(sheetPart(2), kSpreadsheetType + "worksheet+xml", sheet);
    const std::string id =
        package.relationshipsOf(kWorkbookPart).addPart(officeType("worksheet"), sheetPart(2));
    package.writePart(kWorkbookPart,
                      replaceAll(package.readPart(kWorkbookPart), "</sheets>",
                                 "<sheet name=\"Sheet2\" sheetId=\"2\" r:id=\"" + id + "\"/></sheets>"));
    package.writePart("/xl/styles.xml",
                      replaceAll(package.readPart("/xl/styles.xml"), "numFmtId=\"2\"", "numFmtId=\"14\""));
    package.removePart("/xl/calcChain.xml");
    return packageBytes(package);
}

/// A workbook that LibreOffice edits as in the window: saves keep its original.
class BookOriginalTest : public ExcelDropTest {
  protected:
    BookOriginalTest() { load(kForm); }

    void openOriginal() {
        disk.save(path, [&](ByteSink& sink) { sink.write(original); });
        application = libreoffice::makeExcelApplication(sharedOffice(disk), disk, grafting);
        workbook = application->Workbooks()->Open(path);
    }
    void TearDown() override {
        if (workbook) workbook->Close(excel::SaveChanges::No);
    }
    /// Edits the first sheet as the user does, by calls that the object model does not have.
    void edit(const std::function<void(const Reference<css::table::XCellRange>&)>& change) {
        sharedOffice(disk)->connection().call([&] {
            const Reference<css::sheet::XSpreadsheetDocument> book(libreoffice::componentOf(*workbook),
                                                                   UNO_QUERY_THROW);
            const Reference<css::container::XIndexAccess> sheets(book->getSheets(), UNO_QUERY_THROW);
            change(Reference<css::table::XCellRange>(sheets->getByIndex(0), UNO_QUERY_THROW));
        });
        workbook->SetSaved(false);
    }
    std::string saved() {
        workbook->Save();
        return disk.read(path);
    }
    static std::string partOf(const std::string& file, const std::string& name) {
        const opc::Package package = opc::Package::read(file, "saved");
        return package.hasPart(name) ? package.readPart(name) : "";
    }

    TemporaryFolder folder;
    DiskFileStore disk;
    const std::string path = folder / "book.xlsx";
    std::string original = originalBook();
    const std::unique_ptr<model::PackageGraft> graft = graft::makePackageGraft();
    libreoffice::GraftingOfficePtr grafting = std::make_shared<libreoffice::GraftingOffice>(*graft, disk);
};

TEST_F(BookOriginalTest, IsTheSameAfterASaveWithoutAChange) {
    openOriginal();
    workbook->SetSaved(false);
    EXPECT_TRUE(saved() == original);
    ASSERT_TRUE(workbook->keptEntries());
    EXPECT_EQ(workbook->keptEntries()->unchanged, workbook->keptEntries()->all);
}

/// Makes the same drops with the engine of unattended runs.
TEST_F(BookOriginalTest, GetsThePlacesOfAnUnattendedRunAndNothingElse) {
    const auto dropBoth = [&] {
        for (const int row : {4, 6}) {
            goTo(row, 2);
            ASSERT_TRUE(drop(node(row == 4 ? "2k" : "3k")));
        }
    };
    openOriginal();
    dropBoth();
    const std::string file = saved();
    workbook->Close(excel::SaveChanges::No);
    EXPECT_THAT(changedEntries(original, file), ElementsAre("xl/workbook.xml", "xl/worksheets/sheet1.xml"));
    application = embedded::makeExcelApplication(files);
    files.files["/engine.xlsx"] = original;
    workbook = application->Workbooks()->Open("/engine.xlsx");
    dropBoth();
    workbook->Save();
    const std::string wanted = files.read("/engine.xlsx");
    const auto namesOf = [](const std::string& bytes) {
        const std::string xml = partOf(bytes, kWorkbookPart);
        return xml.substr(xml.find("<definedNames>"),
                          xml.find("</definedNames>") - xml.find("<definedNames>"));
    };
    const auto cellsOf = [](const std::string& bytes) {
        const std::string xml = partOf(bytes, sheetPart(1));
        return xml.substr(xml.find("<sheetData>"), xml.find("</worksheet>") - xml.find("<sheetData>"));
    };
    EXPECT_EQ(namesOf(file), namesOf(wanted));
    EXPECT_EQ(cellsOf(file), cellsOf(wanted));
}

/// Calc computes these formulas in the first export and gives them the formats of the cells they refer to,
/// which then are in the second one.
TEST_F(BookOriginalTest, KeepsTheFormatsOfFormulasWithoutResults) {
    original = bookWithPendingFormulas();
    openOriginal();
    workbook->SetSaved(false);
    EXPECT_TRUE(saved() == original);
    goTo(4, 4);
    ASSERT_TRUE(drop(node("2k")));
    EXPECT_THAT(changedEntries(original, saved()),
                ElementsAre("xl/workbook.xml", "xl/worksheets/sheet1.xml"));
}

TEST_F(BookOriginalTest, GetsValuesFormatsAndFormulas) {
    openOriginal();
    edit([](const Reference<css::table::XCellRange>& sheet) {
        sheet->getCellByPosition(0, 0)->setValue(5);
        Reference<css::beans::XPropertySet>(sheet->getCellByPosition(0, 0), UNO_QUERY_THROW)
            ->setPropertyValue("CharWeight", css::uno::Any(150.0F));
        sheet->getCellByPosition(2, 0)->setFormula("=SUM(A1:B1)");
    });
    const std::string file = saved();
    EXPECT_THAT(changedEntries(original, file),
                ElementsAre("[Content_Types].xml", "xl/_rels/workbook.xml.rels", "xl/calcChain.xml",
                            "xl/styles.xml", "xl/workbook.xml", "xl/worksheets/sheet1.xml"));
    const std::string sheetXml = partOf(file, sheetPart(1));
    EXPECT_THAT(sheetXml,
                HasSubstr("<c r=\"A1\" s=\"2\"><v>5</v></c><c r=\"B1\" cm=\"0\"><f>A1*2</f><v>10</v></c>"
                          "<c r=\"C1\"><f>SUM(A1:B1)</f><v>15</v></c>"));
    EXPECT_THAT(sheetXml, HasSubstr("<ignoredError sqref=\"A1\""));
    EXPECT_THAT(partOf(file, "/xl/styles.xml"),
                HasSubstr("<color theme=\"4\"/><name val=\"Calibri\"/><scheme"));
}

/// Sets several links of a cell, one after the other, and removes the last one.
TEST_F(BookOriginalTest, GetsLinksOfCells) {
    openOriginal();
    const auto link = [&](const std::string& address) {
        edit([&](const Reference<css::table::XCellRange>& sheet) {
            const Reference<css::text::XText> cell(sheet->getCellByPosition(2, 3), UNO_QUERY_THROW);
            cell->setString("");
            if (address.empty()) return;
            const Reference<css::sheet::XSpreadsheetDocument> book(libreoffice::componentOf(*workbook),
                                                                   UNO_QUERY_THROW);
            const Reference<css::lang::XMultiServiceFactory> factory(book, UNO_QUERY_THROW);
            const Reference<css::text::XTextContent> field(
                factory->createInstance("com.sun.star.text.TextField.URL"), UNO_QUERY_THROW);
            const Reference<css::beans::XPropertySet> set(field, UNO_QUERY_THROW);
            set->setPropertyValue("URL", css::uno::Any(libreoffice::toUno(address)));
            set->setPropertyValue("Representation", css::uno::Any(rtl::OUString("site")));
            const Reference<css::text::XTextRange> start(cell->createTextCursor(), UNO_QUERY_THROW);
            cell->insertTextContent(start, field, false);
        });
        return saved();
    };
    for (const char* address : {"https://example.org/x?a=1&b=2", "mailto:x@example.org"}) {
        const std::string file = link(address);
        EXPECT_THAT(partOf(file, sheetPart(1)), HasSubstr("<hyperlink ref=\"C4\" r:id=\"rId1\"/>"));
        opc::Package package = opc::Package::read(file, "saved");
        ASSERT_EQ(package.relationshipsOf(sheetPart(1)).all().size(), 1U);
        EXPECT_EQ(package.relationshipsOf(sheetPart(1)).all()[0].target, address);
    }
    EXPECT_THAT(partOf(link("#Sheet1.A1"), sheetPart(1)),
                HasSubstr("<hyperlink ref=\"C4\" location=\"Sheet1!A1\"/>"));
    EXPECT_THAT(partOf(link(""), sheetPart(1)), Not(HasSubstr("hyperlink")));
}

/// Inserts and removes rows and columns of a sheet with cells, a name and a sum below.
TEST_F(BookOriginalTest, GetsInsertedAndRemovedRowsAndColumns) {
    struct Case {
        std::string what;
        std::function<void(css::table::XTableRows&, css::table::XTableColumns&)> change;
        std::string cells;  ///< which the result contains
        std::string sum;
        std::string name;
        std::string mine;  ///< the cells of the original's own element; empty if they go
    };
    const std::vector<Case> cases{
        {"a row", [](auto& rows, auto&) { rows.insertByIndex(1, 1); },
         "<row r=\"3\"><c r=\"A3\" s=\"1\"><v>2</v></c>", "<f>SUM(A1:A7)</f><v>21</v>", "$A$3", "B4 B8"},
        {"two rows", [](auto& rows, auto&) { rows.insertByIndex(2, 2); },
         "<row r=\"5\"><c r=\"A5\" s=\"1\"><v>3</v></c>", "<f>SUM(A1:A8)</f><v>21</v>", "$A$2", "B5 B9"},
        {"a row before the sum", [](auto& rows, auto&) { rows.insertByIndex(6, 1); },
         "<row r=\"6\"><c r=\"A6\" s=\"1\"><v>6</v></c>", "<c r=\"A8\"><f>SUM(A1:A6)</f><v>21</v>", "$A$2",
         "B3 B8"},
        {"a row gone", [](auto& rows, auto&) { rows.removeByIndex(0, 1); },
         "<row r=\"1\"><c r=\"A1\" s=\"1\"><v>2</v></c>", "<f>SUM(A1:A5)</f><v>20</v>", "$A$1", "B2 B6"},
        {"a column", [](auto&, auto& columns) { columns.insertByIndex(0, 1); },
         "<c r=\"B2\" s=\"1\"><v>2</v></c><c r=\"C2\"><v>20</v></c><c r=\"D2\"><v>200</v></c><c "
         "r=\"E2\"><f>B2*2</f>",
         "<f>SUM(B1:B6)</f><v>21</v>", "$B$2", "C3 C7"},
        {"a column gone", [](auto&, auto& columns) { columns.removeByIndex(1, 1); },
         "<c r=\"A2\" s=\"1\"><v>2</v></c><c r=\"B2\"><v>200</v></c><c r=\"C2\"><f>A2*2</f>",
         "<f>SUM(A1:A6)</f><v>21</v>", "$A$2", ""},
        {"rows and a column",
         [](auto& rows, auto& columns) {
             rows.removeByIndex(4, 1);
             rows.insertByIndex(2, 1);
             columns.insertByIndex(1, 1);
         },
         "<row r=\"4\"><c r=\"A4\" s=\"1\"><v>3</v></c>", "<f>SUM(A1:A6)</f><v>16</v>", "$A$2", "C4 C7"},
    };
    for (const Case& each : cases) {
        original = longBook();
        openOriginal();
        edit([&](const Reference<css::table::XCellRange>& sheet) {
            const Reference<css::table::XColumnRowRange> lines(sheet, UNO_QUERY_THROW);
            each.change(*lines->getRows(), *lines->getColumns());
        });
        const std::string file = saved();
        const std::string sheetXml = partOf(file, sheetPart(1));
        EXPECT_THAT(sheetXml, HasSubstr(each.cells)) << each.what;
        EXPECT_THAT(sheetXml, HasSubstr(each.sum)) << each.what;
        const bool isKept = sheetXml.find("<x:mine sqref=\"" + each.mine + "\"/>") != std::string::npos;
        EXPECT_EQ(isKept, !each.mine.empty()) << each.what << sheetXml;
        EXPECT_THAT(partOf(file, kWorkbookPart), HasSubstr("Sheet1!" + each.name + "<")) << each.what;
        workbook->Close(excel::SaveChanges::No);
    }
    workbook = nullptr;
}

TEST_F(BookOriginalTest, GetsTextsOfDividedCellsAndASheetBeforeItsFirst) {
    opc::Package package = opc::Package::read(original, "book");
    package.writePart(sheetPart(1),
                      replaceAll(package.readPart(sheetPart(1)), "</sheetData>",
                                 "</sheetData><mergeCells><mergeCell ref=\"A1:C1\"/></mergeCells>"));
    original = packageBytes(package);
    openOriginal();
    edit([&](const Reference<css::table::XCellRange>& sheet) {
        Reference<css::util::XMergeable>(sheet->getCellRangeByName("A1:C1"), UNO_QUERY_THROW)->merge(false);
        sheet->getCellByPosition(2, 0)->setFormula("typed");
        Reference<css::sheet::XSpreadsheetDocument>(libreoffice::componentOf(*workbook), UNO_QUERY_THROW)
            ->getSheets()
            ->insertNewByName("New", 0);
    });
    const std::string file = saved();
    const std::string sheetXml = partOf(file, sheetPart(1));
    EXPECT_THAT(sheetXml, HasSubstr(">typed</t></is></c>"));
    EXPECT_THAT(sheetXml, Not(HasSubstr("mergeCell")));
    EXPECT_THAT(partOf(file, kWorkbookPart), HasSubstr("activeTab=\"1\""));
}

TEST_F(BookOriginalTest, IsNotSpoiltMoreByManySavesThanByOne) {
    const auto write = [this](int number) { cell(number, 4)->SetValue("more " + std::to_string(number)); };
    openOriginal();
    std::string often;
    for (int number = 1; number <= 10; ++number) {
        write(number);
        often = saved();
    }
    workbook->Close(excel::SaveChanges::No);
    openOriginal();
    for (int number = 1; number <= 10; ++number)
        write(number);
    EXPECT_TRUE(saved() == often);
    EXPECT_THAT(partOf(often, sheetPart(1)), HasSubstr("more 10"));
}

TEST_F(BookOriginalTest, StaysWhenAChangeHasNoRule) {
    openOriginal();
    edit([&](const Reference<css::table::XCellRange>& sheet) {
        Reference<css::beans::XPropertySet> values(
            Reference<css::beans::XPropertySet>(sheet->getCellRangeByName("A1"), UNO_QUERY_THROW)
                ->getPropertyValue("Validation"),
            UNO_QUERY_THROW);
        values->setPropertyValue("ShowInputMessage", css::uno::Any(true));
        values->setPropertyValue("InputMessage", css::uno::Any(rtl::OUString("Type")));
        Reference<css::beans::XPropertySet>(sheet->getCellRangeByName("A1"), UNO_QUERY_THROW)
            ->setPropertyValue("Validation", css::uno::Any(values));
    });
    try {
        workbook->Save();
        ADD_FAILURE() << "it was saved";
    } catch (const model::LossySave& loss) {
        EXPECT_THAT(loss.description(), HasSubstr("a validity rule was changed, near “Sheet1”"));
        EXPECT_THAT(loss.description(), HasSubstr("custom XML"));
    }
    EXPECT_TRUE(disk.read(path) == original);
    EXPECT_FALSE(workbook->Saved());
    EXPECT_EQ(folder.entryCount(), 1);
    workbook->giveUpOriginal();
    EXPECT_FALSE(saved() == original);
    EXPECT_FALSE(workbook->keptEntries());
}

}  // namespace

}  // namespace mergeloom
