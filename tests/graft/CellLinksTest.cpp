#include "base/Text.h"
#include "graft/BookTriple.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mergeloom::graft {

namespace {

/// A workbook with links, of which "r1" and "r2" are ids of addresses.
std::string linkedBook(const std::string& links) {
    TestBook book{.cells = rowOf("<c r=\"A1\" t=\"n\"><v>1</v></c>")};
    if (!links.empty()) book.afterCells = "<hyperlinks>" + links + "</hyperlinks>";
    opc::Package package = opc::Package::read(book.bytes(), "book");
    opc::Relationships& relationships = package.relationshipsOf(sheetPart(1));
    std::string xml = package.readPart(sheetPart(1));
    for (const char* id : {"r1", "r2"}) {
        const std::string quoted = std::string("\"").append(id).append("\"");
        if (xml.find(quoted) == std::string::npos) continue;
        const std::string added =
            relationships.addExternal(officeType("hyperlink"), std::string("http://").append(id));
        xml = replaceAll(xml, quoted, std::string("\"").append(added).append("\""));
    }
    const std::string ids = officeType("");
    package.writePart(
        sheetPart(1),
        replaceAll(xml, "<worksheet", "<worksheet xmlns:r=\"" + ids.substr(0, ids.size() - 1) + "\""));
    return packageBytes(package);
}

std::string cellLink(const std::string& area, const std::string& rest) {
    return "<hyperlink ref=\"" + area + "\" " + rest + "/>";
}

/// Returns the links of a workbook with the addresses at their ids.
std::string linksOf(const std::string& bytes) {
    opc::Package package = opc::Package::read(bytes, "book");
    const std::string xml = package.readPart(sheetPart(1));
    std::string links = xml.substr(xml.find("</sheetData>") + 12);
    links = links.substr(0, links.find("</worksheet>"));
    for (const opc::Relationship& each : package.relationshipsOf(sheetPart(1)).all())
        links = replaceAll(links, "\"" + each.id + "\"", each.target) +
                (links.find("\"" + each.id + "\"") == std::string::npos ? " unused " + each.target : "");
    return links;
}

TEST(CellLinks, AreSetChangedAndRemoved) {
    struct Case {
        std::string original;
        std::string former;
        std::string now;
        std::string expected;
    };
    const std::string first = cellLink("A1", "r:id=\"r1\" display=\"x\"");
    const std::string tip = cellLink("A1", "r:id=\"r1\" tooltip=\"tip\"");
    const std::string inside = cellLink("B2", "location=\"Data!A1\"");
    const std::vector<Case> cases{
        {"", "", first, "<hyperlinks><hyperlink ref=\"A1\" r:id=http://r1/></hyperlinks>"},
        {"", "", inside, "<hyperlinks>" + inside + "</hyperlinks>"},
        {tip, first, first + inside,
         "<hyperlinks><hyperlink ref=\"A1\" r:id=http://r1 tooltip=\"tip\"/>" + inside + "</hyperlinks>"},
        {tip, first, cellLink("A1", "r:id=\"r2\""),
         "<hyperlinks><hyperlink ref=\"A1\" tooltip=\"tip\" r:id=http://r2/></hyperlinks>"},
        {first + inside, first + inside, inside, "<hyperlinks>" + inside + "</hyperlinks>"},
        {first, first, "", ""},
        {cellLink("A1:A2", "r:id=\"r1\""), first + cellLink("A2", "r:id=\"r1\""), first,
         "refused: a link of several cells was changed"},
        {"", first, "", "refused: LibreOffice reads the links differently from the file"},
    };
    for (const Case& each : cases) {
        const std::string books[] = {linkedBook(each.original), linkedBook(each.former),
                                     linkedBook(each.now)};
        const model::EditedPackage package{
            DocumentKind::Excel, 51, "book.xlsx", books[0], books[1], books[2]};
        const model::GraftResult result = makePackageGraft()->graft(package);
        const auto* const grafted = std::get_if<model::GraftedPackage>(&result);
        if (grafted == nullptr) {
            EXPECT_EQ("refused: " + std::get<model::GraftRefusal>(result).reason, each.expected);
            continue;
        }
        EXPECT_EQ(linksOf(grafted->bytes), each.expected);
        EXPECT_FALSE(makePackageGraft()->findFault(package, {}, grafted->bytes)) << each.now;
        EXPECT_TRUE(makePackageGraft()->findFault(package, {}, books[1])) << each.now;
    }
}

}  // namespace

}  // namespace mergeloom::graft
