#include "base/AutomationError.h"
#include "office/embedded/sheet/WorkbookPart.h"
#include "sheet/WorkbookFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom::embedded {
namespace {

using testing::HasSubstr;

/// Returns the sentence with which reading a package fails; empty if it succeeds.
std::string refusal(opc::Package package) {
    UndoLog undo;
    try {
        const WorkbookPart part(package, undo);
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), kFileCouldNotBeRead);
        return error.description();
    }
    return "";
}

TEST(WorkbookPart, ReadsAllKindsOfWorkbooksAndNothingElse) {
    const struct {
        std::string contentType, says;
    } cases[] = {
        {kSheetTypes + "sheet.main+xml", ""},
        {kSheetTypes + "template.main+xml", ""},
        {"application/vnd.ms-excel.sheet.macroEnabled.main+xml", ""},
        {"application/vnd.ms-excel.template.macroEnabled.main+xml", ""},
        {"application/vnd.ms-excel.addin.macroEnabled.main+xml", ""},
        {"application/vnd.ms-excel.sheet.binary.macroEnabled.main", "binary workbook (.xlsb)"},
        {"application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml", "Word document"},
        {"application/vnd.openxmlformats-officedocument.presentationml.slideshow.main+xml", "presentation"},
        {"application/xml", "no workbook"},
    };
    for (const auto& [contentType, says] : cases) {
        const std::string refused =
            refusal(workbookPackage(workbookXml(sheetList({"visible"})), 1, contentType));
        EXPECT_EQ(refused.empty(), says.empty()) << contentType;
        EXPECT_THAT(refused, HasSubstr(says));
    }
}

TEST(WorkbookPart, RefusesWhatCannotBeEdited) {
    const std::string sheet = sheetList({"visible"});
    const std::string twice =
        "<sheets><sheet name=\"A\" r:id=\"rId1\"/><sheet name=\"B\" r:id=\"rId1\"/></sheets>";
    EXPECT_THAT(refusal(workbookPackage(workbookXml(sheetList({"hidden", "veryHidden"})), 2)),
                HasSubstr("without a visible sheet"));
    EXPECT_THAT(refusal(workbookPackage(workbookXml(""), 1)), HasSubstr("without a visible sheet"));
    EXPECT_THAT(refusal(workbookPackage(workbookXml(sheet), 0)), HasSubstr("\"S1\" is missing"));
    EXPECT_THAT(refusal(workbookPackage(workbookXml(twice), 1)), HasSubstr("\"B\" is also another one"));
    EXPECT_THAT(refusal(workbookPackage("<workbook><sheets></workbook>", 1)), HasSubstr(kWorkbookName));
    EXPECT_THAT(refusal(workbookPackage("<chartsheet/>", 1)), HasSubstr("no root element"));

    opc::Package lost = workbookPackage(workbookXml(sheet), 1);
    lost.removePart("/xl/worksheets/sheet1.xml");
    EXPECT_THAT(refusal(std::move(lost)), HasSubstr("\"S1\" is missing"));
    opc::Package sealed = workbookPackage(workbookXml(sheet), 1);
    sealed.relationshipsOf("/").addPart(std::string(opc::kSignatureOriginType),
                                        "/_xmlsignatures/origin.sigs");
    EXPECT_THAT(refusal(std::move(sealed)), HasSubstr("digitally signed"));
}

TEST(WorkbookPart, ListsSheetsOfAllKindsInTheirOrder) {
    opc::Package package =
        workbookPackage(workbookXml(sheetList({"visible", "hidden", "visible", "visible"})), 2);
    const auto add = [&](const std::string& type, const std::string& part) {
        package.addPart(part, "application/xml", "<x/>");
        package.relationshipsOf(kWorkbookName).addPart(type, part);
    };
    add(relationType("chartsheet"), "/xl/chartsheets/sheet1.xml");
    add("http://schemas.microsoft.com/office/2006/relationships/xlMacrosheet", "/xl/macrosheets/sheet1.xml");
    UndoLog undo;
    const WorkbookPart part(package, undo);
    ASSERT_EQ(part.sheets().size(), 4U);
    EXPECT_EQ(part.sheets()[0].name, "S1");
    EXPECT_EQ(part.sheets()[1].partName, "/xl/worksheets/sheet2.xml");
    EXPECT_EQ(part.sheets()[1].sheetId, 20);
    EXPECT_TRUE(part.sheets()[1].hidden);
    EXPECT_EQ(part.sheets()[1].kind, SheetKind::Worksheet);
    EXPECT_EQ(part.sheets()[2].kind, SheetKind::ChartSheet);
    EXPECT_EQ(part.sheets()[3].kind, SheetKind::Other);
}

TEST(WorkbookPart, ReadsStrictPartsWithPrefixes) {
    const std::string xml =
        "<x:workbook xmlns:x=\"http://purl.oclc.org/ooxml/spreadsheetml/main\" "
        "xmlns:rel=\"http://purl.oclc.org/ooxml/officeDocument/relationships\" xmlns:other=\"urn:other\">"
        "<x:sheets><x:sheet name=\"A\" sheetId=\"1\" other:id=\"rId7\" rel:id=\"rId1\"/></x:sheets>"
        "<x:definedNames><x:definedName name=\"Here\">A!$A$1</x:definedName></x:definedNames></x:workbook>";
    opc::Package package = workbookPackage(xml, 0);
    package.addPart("/xl/one.xml", kSheetTypes + "worksheet+xml", "<worksheet/>");
    package.relationshipsOf(kWorkbookName)
        .addPart(opc::officeRelationshipType("worksheet", opc::Conformance::Strict), "/xl/one.xml");
    UndoLog undo;
    WorkbookPart part(package, undo);
    EXPECT_EQ(part.sheets().front().partName, "/xl/one.xml");
    EXPECT_EQ(part.sheets().front().kind, SheetKind::Worksheet);
    part.names().define("There", "A!$B$2");
    EXPECT_THAT(part.toXml(),
                HasSubstr("</x:definedName><x:definedName name=\"There\">A!$B$2</x:definedName>"));
}

TEST(WorkbookPart, TakesAVisibleSheetForTheActiveOne) {
    const struct {
        std::string views;
        std::vector<std::string> states;
        std::size_t active;
    } cases[] = {
        {"", {"visible", "visible"}, 0},
        {"", {"hidden", "visible"}, 1},
        {"<bookViews><workbookView/><workbookView activeTab=\"1\"/></bookViews>", {"visible", "visible"}, 0},
        {"<bookViews><workbookView activeTab=\"1\"/></bookViews>", {"visible", "visible"}, 1},
        {"<bookViews><workbookView activeTab=\"1\"/></bookViews>", {"visible", "veryHidden"}, 0},
        {"<bookViews><workbookView activeTab=\"9\"/></bookViews>", {"hidden", "visible"}, 1},
        {"<bookViews><workbookView activeTab=\"-1\"/></bookViews>", {"visible", "visible"}, 0},
    };
    for (const auto& [views, states, active] : cases) {
        opc::Package package = workbookPackage(workbookXml(views + sheetList(states)), 2);
        UndoLog undo;
        EXPECT_EQ(WorkbookPart(package, undo).activeSheet(), active) << views;
    }
}

TEST(WorkbookPart, WritesTheActiveSheetIntoItsView) {
    const std::string sheets = sheetList({"visible", "visible", "hidden"});
    for (const std::string& views : {std::string(), std::string("<bookViews/>"),
                                     std::string("<bookViews><workbookView/></bookViews>")}) {
        const std::string xml = workbookXml("<workbookPr/>" + views + sheets);
        opc::Package package = workbookPackage(xml, 3);
        UndoLog undo;
        WorkbookPart part(package, undo);
        part.setActiveSheet(0);
        EXPECT_FALSE(part.isDirty());
        undo.start();
        part.setActiveSheet(1);
        EXPECT_EQ(part.activeSheet(), 1U);
        EXPECT_THAT(part.toXml(),
                    HasSubstr("<workbookPr/><bookViews><workbookView activeTab=\"1\"/></bookViews><sheets>"));
        EXPECT_THROW(part.setActiveSheet(2), AutomationError);
        EXPECT_THROW(part.setActiveSheet(3), AutomationError);
        undo.undo();
        EXPECT_EQ(part.toXml(), xml);
        EXPECT_FALSE(part.isDirty());
    }
}

TEST(WorkbookPart, WhatIsTakenBackAfterStoringIsStoredAgain) {
    opc::Package package = workbookPackage(workbookXml(sheetList({"visible", "visible"})), 2);
    UndoLog undo;
    WorkbookPart part(package, undo);
    const std::string before = package.readPart(kWorkbookName);
    undo.start();
    part.setActiveSheet(1);
    part.store();
    EXPECT_FALSE(part.isDirty());
    EXPECT_THAT(package.readPart(kWorkbookName), HasSubstr("activeTab=\"1\""));
    undo.undo();
    EXPECT_TRUE(part.isDirty());
    part.store();
    EXPECT_EQ(package.readPart(kWorkbookName), before);
}

}  // namespace
}  // namespace mergeloom::embedded
