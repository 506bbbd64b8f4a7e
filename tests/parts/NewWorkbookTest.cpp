#include "office/embedded/parts/NewDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <pugixml.hpp>
#include <string>

namespace mergeloom::embedded {
namespace {

using testing::ElementsAre;

pugi::xml_document parsedWorkbookPart(const std::string& partName) {
    pugi::xml_document document;
    document.load_string(initialPackage(newWorkbookParts()).readPart(partName).c_str());
    return document;
}

std::vector<std::string> childrenOf(pugi::xml_node element) {
    std::vector<std::string> names;
    for (const pugi::xml_node child : element.children())
        names.emplace_back(child.name());
    return names;
}

TEST(NewWorkbook, SheetIsFoundBehindTheWorkbooksRelationship) {
    opc::Package package = initialPackage(newWorkbookParts());
    ASSERT_EQ(package.mainPart(), "/xl/workbook.xml");
    const pugi::xml_document workbook = parsedWorkbookPart("/xl/workbook.xml");
    EXPECT_THAT(childrenOf(workbook.child("workbook")), ElementsAre("workbookPr", "bookViews", "sheets"));
    const pugi::xml_node sheets = workbook.child("workbook").child("sheets");
    ASSERT_THAT(childrenOf(sheets), ElementsAre("sheet"));
    EXPECT_STREQ(sheets.child("sheet").attribute("name").value(), "Sheet1");
    const opc::Relationships& relationships = package.relationshipsOf("/xl/workbook.xml");
    const opc::Relationship* const sheet =
        relationships.find(sheets.child("sheet").attribute("r:id").value());
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(opc::officeShortName(sheet->type), "worksheet");
    EXPECT_EQ(relationships.targetPart(*sheet), "/xl/worksheets/sheet1.xml");
}

TEST(NewWorkbook, SheetIsEmptyAndInTheSchemasOrder) {
    const pugi::xml_document document = parsedWorkbookPart("/xl/worksheets/sheet1.xml");
    const pugi::xml_node sheet = document.child("worksheet");
    EXPECT_THAT(childrenOf(sheet),
                ElementsAre("dimension", "sheetViews", "sheetFormatPr", "sheetData", "pageMargins"));
    EXPECT_TRUE(sheet.child("sheetData").first_child().empty());
}

TEST(NewWorkbook, StylesReferToWhatThereIs) {
    const pugi::xml_document document = parsedWorkbookPart("/xl/styles.xml");
    const pugi::xml_node styles = document.child("styleSheet");
    EXPECT_THAT(childrenOf(styles), ElementsAre("fonts", "fills", "borders", "cellStyleXfs", "cellXfs",
                                                "cellStyles", "dxfs", "tableStyles"));
    for (const pugi::xml_node list : styles.children()) {
        EXPECT_EQ(list.attribute("count").as_int(-1), static_cast<int>(childrenOf(list).size()))
            << list.name();
    }
    const auto countOf = [&](const char* list) { return styles.child(list).attribute("count").as_int(); };
    EXPECT_EQ(countOf("fills"), 2);
    for (const char* formats : {"cellStyleXfs", "cellXfs"}) {
        const pugi::xml_node format = styles.child(formats).child("xf");
        EXPECT_LT(format.attribute("fontId").as_int(99), countOf("fonts"));
        EXPECT_LT(format.attribute("fillId").as_int(99), countOf("fills"));
        EXPECT_LT(format.attribute("borderId").as_int(99), countOf("borders"));
    }
    const pugi::xml_node normal = styles.child("cellStyles").find_child_by_attribute("builtinId", "0");
    EXPECT_STREQ(normal.attribute("name").value(), "Normal");
    EXPECT_LT(normal.attribute("xfId").as_int(99), countOf("cellStyleXfs"));
}

}  // namespace
}  // namespace mergeloom::embedded
