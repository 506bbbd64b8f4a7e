#include "graft/BookTriple.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mergeloom::graft {

namespace {

/// The bytes of an original, of its export and of the export after an edit, and the reason why the edit
/// cannot be repeated.
struct RefusalCase {
    std::string expected;
    std::string original;
    std::string baseline;
    std::string edited;
};

std::string reasonOf(const RefusalCase& each) {
    const model::GraftResult result = makePackageGraft()->graft(
        {DocumentKind::Excel, 51, "book.xlsx", each.original, each.baseline, each.edited});
    const auto* const refusal = std::get_if<model::GraftRefusal>(&result);
    return refusal == nullptr ? "not refused" : refusal->reason;
}

/// Returns a workbook of the strict kind.
std::string strictFile(const std::vector<TestSheet>& sheets) {
    opc::Package package = workbookPackage(sheets);
    const std::string id = package.relationshipsOf("/").all().front().id;
    package.relationshipsOf("/").remove(id);
    package.relationshipsOf("/").addPart(
        opc::officeRelationshipType("officeDocument", opc::Conformance::Strict), kWorkbookPart);
    return packageBytes(package);
}

/// Returns a workbook with a drawing of one anchor.
std::string drawnFile(const std::string& anchor) {
    opc::Package package = workbookPackage({{"Data"}});
    package.addPart(
        "/xl/drawings/drawing1.xml", "application/vnd.openxmlformats-officedocument.drawing+xml",
        "<xdr:wsDr xmlns:xdr=\"x\"><xdr:twoCellAnchor>" + anchor + "</xdr:twoCellAnchor></xdr:wsDr>");
    package.relationshipsOf(sheetPart(1)).addPart(officeType("drawing"), "/xl/drawings/drawing1.xml");
    return packageBytes(package);
}

TEST(BookRefusal, NamesTheReason) {
    const std::string plain = TestBook{}.bytes();
    const std::string two = workbookFile({{"Data"}, {"Added"}});
    const std::string rule = "<conditionalFormatting sqref=\"A1\"><cfRule/></conditionalFormatting>";
    const TestBook merged{.afterCells = "<mergeCells><mergeCell ref=\"A1:B1\"/></mergeCells>"};
    const TestBook named{.names = "<definedName name=\"Town\">Data!$A$1</definedName>"};
    const auto formatted = [](const std::string& style) {
        return TestBook{.cells = rowOf("<c r=\"A1\" s=\"" + style + "\" t=\"n\"><v>1</v></c>"),
                        .formats = "<xf fontId=\"1\"/>",
                        .lists = kShownFonts}
            .bytes();
    };
    const auto tall = [](const std::string& height) {
        return TestBook{.beforeCells = "<sheetFormatPr defaultRowHeight=\"" + height + "\"/>"}.bytes();
    };
    const auto array = [](const std::string& cells) { return TestBook{.cells = rowOf(cells)}.bytes(); };
    const std::string first = "<c r=\"A1\" t=\"n\"><f t=\"array\" ref=\"A1:B1\">C1:D1</f><v>1</v></c>";
    const std::string arrayOfTwo = array(first + "<c r=\"B1\" t=\"n\"><v>1</v></c>");
    const std::vector<RefusalCase> cases{
        {"a format was changed, but the workbook has no styles", workbookFile({{"Data"}}), formatted("0"),
         formatted("1")},
        {"a sheet was added to a workbook of the strict kind", strictFile({{"Data"}}),
         workbookFile({{"Data"}}), two},
        {"a sheet with more than cells was added", workbookFile({{"Data"}}), workbookFile({{"Data"}}),
         workbookFile({{"Data"}, {"Added", "<sheetData/>" + rule}})},
        {"an object was inserted", workbookFile({{"Data"}}), workbookFile({{"Data"}}),
         drawnFile("<xdr:sp/>")},
        {"the default height of rows was changed", plain, tall("15"), tall("19")},
        {"LibreOffice reads the merged cells differently from the file", plain, merged.bytes(), plain},
        {"LibreOffice reads the names differently from the file", plain, named.bytes(), plain},
        {"The cell A1 of the sheet 'Data' is part of an array formula, which can only be changed as a whole.",
         arrayOfTwo, arrayOfTwo, plain},
        {"The cell A1 of the sheet 'Data' is part of an array formula, which can only be changed as a whole.",
         arrayOfTwo, arrayOfTwo, array("<c r=\"A1\" t=\"n\"><v>5</v></c><c r=\"B1\" t=\"n\"><v>1</v></c>")},
    };
    for (const RefusalCase& each : cases)
        EXPECT_EQ(reasonOf(each), each.expected);
    // The office computes the default height from the font, so it may differ a little.
    EXPECT_EQ(reasonOf({"", plain, tall("15"), tall("17")}), "not refused");
}

/// The format of the cell A1 in the original and in two exports, and the new one in the original.
struct RemovalCase {
    std::string element;  ///< of the styles
    std::string original;
    std::string former;
    std::string now;
    std::string expected;
};

TEST(BookRefusal, IsNotNeededForRemovedPropertiesOfFormats) {
    const std::vector<RemovalCase> cases{
        {"cellXfs", "<xf><protection locked=\"0\" hidden=\"1\"/></xf>", "<xf><protection locked=\"0\"/></xf>",
         "<xf/>", "<xf applyProtection=\"1\"><protection hidden=\"1\"/></xf>"},
        {"cellXfs", "<xf><alignment wrapText=\"1\" indent=\"2\"/></xf>",
         "<xf><alignment horizontal=\"left\" wrapText=\"1\"/></xf>",
         "<xf><alignment horizontal=\"left\"/></xf>",
         "<xf applyAlignment=\"1\"><alignment indent=\"2\"/></xf>"},
        {"borders", "<xf borderId=\"1\"/>", "<xf borderId=\"1\"/>", "<xf/>",
         "<border outline=\"1\"><left style=\"thick\"/></border>"},
        {"borders", "<xf/>", "<xf/>", "<xf borderId=\"1\"/>",
         "<border diagonalUp=\"1\"><left style=\"thin\"/><diagonal style=\"hair\"/></border>"},
    };
    const std::string borders =
        "<borders><border><left style=\"thin\"/></border><border diagonalUp=\"1\" outline=\"1\"><left "
        "style=\"thick\"/><diagonal style=\"hair\"/></border></borders>";
    const std::string shown =
        "<borders><border/><border diagonalUp=\"1\"><diagonal style=\"hair\"/></border></borders>";
    for (const RemovalCase& each : cases) {
        const auto book = [&](const std::string& format, const std::string& lists) {
            return TestBook{.cells = rowOf("<c r=\"A1\" s=\"1\" t=\"n\"><v>1</v></c>"),
                            .formats = format,
                            .lists = lists};
        };
        const BookTriple triple{book(each.original, borders), book(each.former, shown),
                                book(each.now, shown)};
        const std::string list = triple.content(kStylesPart, each.element);
        EXPECT_TRUE(list.ends_with(each.expected)) << list;
    }
}

}  // namespace

}  // namespace mergeloom::graft
