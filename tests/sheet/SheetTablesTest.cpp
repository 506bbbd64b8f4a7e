#include "base/AutomationError.h"
#include "office/embedded/sheet/SheetTables.h"
#include "sheet/SheetXml.h"
#include "sheet/WorkbookFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom::embedded {
namespace {

using testing::HasSubstr;

const std::string kSheetName = "/xl/worksheets/sheet1.xml";
const std::string kTableName = "/xl/tables/table1.xml";

std::string tableXml(const std::string& attributes, const std::vector<std::string>& columns) {
    std::string xml = "<table xmlns=\"" + std::string(kMainNamespace) + "\" " + attributes +
                      "><autoFilter ref=\"B2:D9\"/><tableColumns>";
    for (const std::string& column : columns)
        xml += "<tableColumn id=\"1\" name=\"" + column + "\"/>";
    return xml + "</tableColumns></table>";
}

/// A sheet with one table, whose header is in B2:D2 by default.
class SheetTablesTest : public testing::Test {
  protected:
    void read(const std::string& xml) {
        package_.addPart(kTableName, kSheetTypes + "table+xml", xml);
        package_.relationshipsOf(kSheetName).addPart(relationType("table"), kTableName);
    }
    void read(const std::vector<std::string>& columns) { read(tableXml("ref=\"B2:D9\"", columns)); }
    std::string allowed(const char* cell, const std::string& text) {
        return tables_.allowedText(at(cell), text);
    }
    std::string stored() {
        tables_.store();
        return package_.readPart(kTableName);
    }

    UndoLog undo_;
    opc::Package package_ = oneSheetPackage();
    SheetTables tables_{package_, kSheetName, undo_};
};

TEST_F(SheetTablesTest, OnlyHeaderCellsAreBound) {
    read({"Name", "Price", "Name2"});
    for (const char* cell : {"A2", "E2", "B1", "B3", "D9"}) {
        EXPECT_EQ(allowed(cell, "Name"), "Name") << cell;
        EXPECT_EQ(allowed(cell, ""), "") << cell;
        tables_.textWasSet(at(cell), "Text");
    }
    EXPECT_EQ(stored(), tableXml("ref=\"B2:D9\"", {"Name", "Price", "Name2"}));
}

TEST_F(SheetTablesTest, HeaderGetsATextThatNoOtherColumnHas) {
    read({"Name", "Price", "Name2"});
    EXPECT_EQ(allowed("C2", "Total"), "Total");
    EXPECT_EQ(allowed("C2", "PRICE"), "PRICE");
    EXPECT_EQ(allowed("C2", "NAME"), "NAME3");
    EXPECT_EQ(allowed("D2", "name"), "name2");
    EXPECT_EQ(allowed("C2", ""), "Column1");
    EXPECT_EQ(allowed("C2", std::string(300, 'x')), std::string(255, 'x'));
    tables_.textWasSet(at("B2"), std::string(255, 'x'));
    EXPECT_EQ(allowed("C2", std::string(300, 'X')), std::string(254, 'X') + "2");
}

TEST_F(SheetTablesTest, ColumnIsRenamedAndNothingElse) {
    read({"Name", "Price", "Other"});
    undo_.start();
    tables_.textWasSet(at("C2"), "Net & \"gross\"");
    EXPECT_EQ(stored(), tableXml("ref=\"B2:D9\"", {"Name", "Net &amp; &quot;gross&quot;", "Other"}));
    EXPECT_EQ(allowed("B2", "Price"), "Price");
    EXPECT_EQ(allowed("B2", "net & \"gross\""), "net & \"gross\"2");
    undo_.undo();
    EXPECT_EQ(stored(), tableXml("ref=\"B2:D9\"", {"Name", "Price", "Other"}));
    EXPECT_EQ(allowed("B2", "Price"), "Price2");
    EXPECT_EQ(allowed("B2", "net & \"gross\""), "net & \"gross\"");
}

TEST_F(SheetTablesTest, LineBreaksAreEscapedInTheAttribute) {
    read({"One_x000a_Two", "Price", "Other"});
    EXPECT_EQ(allowed("C2", "one\ntwo"), "one\ntwo2");
    tables_.textWasSet(at("C2"), "Net\nprice\t_x000a_");
    EXPECT_THAT(stored(), HasSubstr("name=\"Net_x000a_price_x0009__x005F_x000a_\""));
    EXPECT_EQ(allowed("D2", "NET\nprice\t_x000a_"), "NET\nprice\t_x000a_2");
}

TEST_F(SheetTablesTest, TableWithoutAHeaderRowBindsNoCell) {
    read(tableXml("ref=\"B2:D9\" headerRowCount=\"0\"", {"Name", "Price", "Other"}));
    EXPECT_EQ(allowed("B2", "Price"), "Price");
}

TEST_F(SheetTablesTest, MalformedTableIsToldEachTime) {
    read(std::string("<table><tableColumns></table>"));
    EXPECT_THROW(tables_.textWasSet(at("B2"), "A"), AutomationError);
    EXPECT_THROW(tables_.textWasSet(at("B2"), "A"), AutomationError);
}

TEST_F(SheetTablesTest, MissingTableIsPassedOver) {
    package_.relationshipsOf(kSheetName).addPart(relationType("table"), "/xl/tables/gone.xml");
    read({"Name", "Price", "Other"});
    EXPECT_EQ(allowed("B2", "Price"), "Price2");
}

}  // namespace
}  // namespace mergeloom::embedded
