#include "ExcelDropTest.h"

#include <vector>

namespace mergeloom {
namespace {

/// Keys: 1 Letter, 2 Customer, 3 Logo, 4 Ship (not bound), 5 City, 6 Lines (bound), 7 Price, 8 Remark,
/// 9 Empty, then the objects.
constexpr const char* kStructure = R"(<db>
  <Form Name="Letter" CurrentView="1" DefaultView="0">
    <Control Name="Customer No." Caption="&amp;Customer:" ControlType="Textbox" Section="0"/>
    <Control Name="Logo" ControlType="CustomControl" Image="logo.png" Section="1"/>
    <Control Name="Ship" Caption="Ship to" ControlType="Subform"><Form HasRecordset="0">
      <Control Name="City" ControlType="Textbox" Section="0"/></Form></Control>
    <Control Name="Lines" ControlType="Subform"><Form HasRecordset="1">
      <Control Name="Price" ControlType="Textbox"/>
      <Control Name="Remark" ControlType="Textbox" Section="2"/></Form></Control>
    <Control Name="Empty" ControlType="subform"/>
  </Form>
  <Table Name="Sheet" CurrentView="2"><Control Name="Column" ControlType="Textbox"/></Table>
  <Form Name="Continuous" CurrentView="1" DefaultView="1"><Control Name="A"/></Form>
  <Query Name="Design" CurrentView="0"/>
  <Data><Control Name="Customer No."><BoundValue>1</BoundValue></Control></Data>
</db>)";

class ExcelDispatcher : public ExcelDropTest {
  protected:
    void SetUp() override { load(kStructure); }
};

TEST_F(ExcelDispatcher, EveryKindOfNode) {
    struct Case {
        std::string key, kind, expectedCells, expectedNames;
        std::string expectedMessage{};
    };
    const std::vector<Case> cases{
        {"2k", "Label", "Customer:\n", ""},
        {"2k", "Value", "[CustomerNo]\n", "ammCustomerNo=B2 "},
        {"2k", "Bound Value", "[CustomerNo_bv]\n", "ammCustomerNo_bv=B2 "},
        {"2k", "Label and Value", "Customer:|[CustomerNo]\n", "ammCustomerNo=C2 "},
        {"2k", "", "[CustomerNo]\n", "ammCustomerNo=B2 "},
        {"3k", "Value", "[Logo]\n", "ammLogo=B2 "},
        {"4k", "", "City|[ShipCity]\n", "ammShipCity=C2 "},
        {"5k", "Label and Value", "City|[ShipCity]\n", "ammShipCity=C2 "},
        {"6k", "", "Price\n[LinesPrice]\n", "ammLines=B2:B3 ammLinesPrice=B3 "},
        {"7k", "Value", "[LinesPrice]\n", "ammLinesPrice=B2 "},
        {"7k", "Label", "Price\n", ""},
        {"8k", "Label and Value", "Remark|[LinesRemark]\n", "ammLinesRemark=C2 "},
        {"9k", "", "", ""},
        {"10k", "", "Column\n[Column]\n", "ammColumn=B3 ammSheetT=B2:B3 "},
        {"12k", "", "A\n[A]\n", "ammA=B3 ammContinuousT=B2:B3 ", "Present Data in the Table Form?\n"},
        {"14k", "", "", "", "Support for Design view is not realised yet.\n"},
    };
    for (const Case& c : cases) {
        open();
        goTo(2, 2);
        messages.messages.clear();
        EXPECT_EQ(drop(node(c.key, c.kind)), !c.expectedCells.empty()) << c.key << c.kind;
        EXPECT_EQ(cells(2, 2), c.expectedCells) << c.key << c.kind;
        EXPECT_EQ(names(), c.expectedNames) << c.key << c.kind;
        EXPECT_EQ(messages.texts(), c.expectedMessage) << c.key << c.kind;
    }
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(ExcelDispatcher, WhatOnlyWordTakes) {
    open();
    EXPECT_FALSE(drop(node("1k"), DocumentType::LabelDocument));
    EXPECT_EQ(messages.texts(), "Label documents are made in Word only.\n");
    messages.messages.clear();

    TreeNode& space = tree.Add(0, 0, "Optional Space");
    space.SetTag("Optional Space");
    EXPECT_FALSE(drop(space));
    EXPECT_FALSE(
        CNodeDropper(errors, messages, {}, progress)
            .NodeDrop(node("1k"), excel::WorkbookPtr{}, xmlNodes, false, DocumentType::ByView, nullptr));
    EXPECT_EQ(messages.texts() + cells() + names(), "");
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(ExcelDispatcher, AFormComesWithAllItsControls) {
    open();
    goTo(2, 2);
    EXPECT_TRUE(drop(node("1k")));
    EXPECT_EQ(cells(2, 2),
              "Customer:|[CustomerNo]\n"
              "Logo|[Logo]\n"
              "Ship to|City|[ShipCity]\n"
              "Lines|Price\n"
              "|[LinesPrice]\n");
    EXPECT_EQ(names(), "ammCustomerNo=C2 ammLines=C5:C6 ammLinesPrice=C6 ammLogo=C3 ammShipCity=D4 ");
    EXPECT_EQ(active(), "B7") << "below the form";
    EXPECT_EQ(progress.last, (std::pair<std::int64_t, std::int64_t>(5, 5)));
    EXPECT_EQ(messages.texts(),
              "The subform \"Empty\" is left out: it has no control that can be dropped.\n");
}

TEST_F(ExcelDispatcher, ChosenControlsComeInTheirOwnOrder) {
    open();
    const FieldKeys keys{"3K", "11k", "99k", "2k"};
    EXPECT_TRUE(drop(node("1k"), DocumentType::ByView, &keys));
    EXPECT_EQ(cells(), "Logo|[Logo]\nCustomer:|[CustomerNo]\n");

    open();
    const FieldKeys strangers{"11k"};
    EXPECT_FALSE(drop(node("1k"), DocumentType::ByView, &strangers));
    EXPECT_EQ(cells(), "");
}

}  // namespace
}  // namespace mergeloom
