#include "DropTest.h"
#include "droppers/CNodeDropper.h"

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
  <Query Name="Layout" CurrentView="7"/>
  <Query Name="Unknown" CurrentView="12"/>
  <Query Name="Absent"/>
  <Data><Control Name="Customer No."><BoundValue>1</BoundValue></Control></Data>
</db>)";

const std::string kNoTable = "The tablefield may only be dropped on a table.\n";
/// The table of the only field in the detail section of the subform.
const std::string kLines = "[Lines:Price\n|[LinesPrice:Price] \n|]";

class Dispatcher : public DropTest {
  protected:
    void SetUp() override { load(kStructure); }
};

TEST_F(Dispatcher, EveryKindOfNode) {
    struct Case {
        std::string key, kind;
        std::string expectedBody;
        std::string expectedMessage;
    };
    const std::vector<Case> cases{
        {"2k", "Label", "Customer:\n", ""},
        {"2k", "Value", "[CustomerNo:CustomerNo] \n", ""},
        {"2k", "Bound Value", "[CustomerNo_bv:CustomerNo] \n", ""},
        {"2k", "Label and Value", "Customer: [CustomerNo:CustomerNo]\n\n", ""},
        {"2k", "", "[CustomerNo:CustomerNo] \n", ""},
        // An image control without its file has the drop kinds of any other control.
        {"3k", "Value", "[Logo:Logo] \n", ""},
        {"4k", "", "City: [ShipCity:City]\n\n", ""},
        {"5k", "Value", "[ShipCity:City] \n", ""},
        {"5k", "Label and Value", "City: [ShipCity:City]\n\n", ""},
        {"6k", "", "\n" + kLines + "\n", ""},
        {"7k", "Value", "", kNoTable},
        {"7k", "Label", "Price\n", ""},
        {"8k", "Value", "[LinesRemark:Remark] \n", ""},
        {"9k", "", "", ""},
        {"10k", "", "\n[SheetT:Column\n|[Column:Column] \n|]\n", ""},
        {"11k", "", "", kNoTable},
        {"12k", "", "\n[ContinuousT:A\n|[A:A] \n|]\n", "Present Data in the Table Form?\n"},
        {"14k", "", "", "Support for Design view is not realised yet.\n"},
        {"15k", "", "", "Support for Layout view is not realised yet.\n"},
        {"16k", "", "", "Support for 12 view is not realised yet.\n"},
        {"17k", "", "", "Support for Design view is not realised yet.\n"},
    };
    for (const Case& c : cases) {
        open();
        messages.messages.clear();
        EXPECT_EQ(drop(node(c.key, c.kind)), !c.expectedBody.empty()) << c.key << c.kind;
        EXPECT_EQ(body(), c.expectedBody.empty() ? "\n" : c.expectedBody) << c.key << c.kind;
        EXPECT_EQ(messages.texts(), c.expectedMessage) << c.key << c.kind;
    }
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(Dispatcher, TheDocumentTypeGoesBeforeTheView) {
    struct Case {
        std::string key;
        DocumentType type;
        MessageAnswer answer;
        std::string expectedBody, expectedMessage;
    };
    const std::vector<Case> cases{
        {"1k", DocumentType::Table, MessageAnswer::Yes,
         "\n[LetterT:Customer:\n|[CustomerNo:CustomerNo] \n|]\n", ""},
        {"12k", DocumentType::Form, MessageAnswer::Yes, "A: [A:A]\n\n", ""},
        {"12k", DocumentType::ByView, MessageAnswer::No, "A: [A:A]\n\n", "Present Data in the Table Form?\n"},
        {"10k", DocumentType::Form, MessageAnswer::Yes, "Column: [Column:Column]\n\n", ""},
        {"1k", DocumentType::LabelDocument, MessageAnswer::Yes, "[CustomerNo:CustomerNo] [Logo:Logo] \n", ""},
        {"12k", DocumentType::LabelDocument, MessageAnswer::No, "[A:A] \n",
         "Present Data in the Table Form?\n"},
        {"14k", DocumentType::LabelDocument, MessageAnswer::Yes, "\n",
         "Support for Design view is not realised yet.\n"},
    };
    for (const Case& c : cases) {
        open();
        messages.messages.clear();
        messages.yesNoAnswer = c.answer;
        EXPECT_EQ(drop(node(c.key), c.type), c.expectedBody != "\n") << c.key;
        EXPECT_EQ(body(), c.expectedBody) << c.key;
        EXPECT_EQ(messages.texts(), c.expectedMessage) << c.key;
    }
}

/// The tree uses the same values to recognise the fields of a datasheet.
TEST_F(Dispatcher, NumbersMayHaveBlanksAroundAndLeadingZeros) {
    load(R"(<db><Form Name="F" CurrentView=" 1 " DefaultView="01"><Control Name="Lines" ControlType="Subform">
        <Form HasRecordset="01"><Control Name="P"/></Form></Control></Form>
        <Table Name="T" CurrentView="02 "><Control Name="A"/></Table></db>)");
    const std::string table = "\n[Lines:P\n|[LinesP:P] \n|]\n";
    struct Case {
        const char* key;
        std::string expectedBody, expectedMessage;
    };
    const std::vector<Case> cases{
        {"1k", "Lines: " + table, "Present Data in the Table Form?\n"},
        {"2k", table, ""},
        {"4k", "\n[TT:A\n|[A:A] \n|]\n", ""},
    };
    messages.yesNoAnswer = MessageAnswer::No;
    for (const Case& c : cases) {
        open();
        messages.messages.clear();
        EXPECT_TRUE(drop(node(c.key))) << c.key;
        EXPECT_EQ(body(), c.expectedBody) << c.key;
        EXPECT_EQ(messages.texts(), c.expectedMessage) << c.key;
    }
    EXPECT_EQ(node("2k").Tag(), "2");
}

TEST_F(Dispatcher, MessagesLookAsTheyAreMeant) {
    open();
    messages.yesNoAnswer = MessageAnswer::No;
    drop(node("12k"));
    drop(node("14k"));
    ASSERT_EQ(messages.messages.size(), 2U);
    EXPECT_EQ(messages.messages[0].icon, MessageIcon::Question);
    EXPECT_EQ(messages.messages[0].buttons, MessageButtons::YesNo);
    EXPECT_EQ(messages.messages[1].icon, MessageIcon::None);
}

TEST_F(Dispatcher, AFormComesWithAllItsControls) {
    open();
    EXPECT_TRUE(drop(node("1k")));
    EXPECT_EQ(body(),
              "Customer: [CustomerNo:CustomerNo]\n"
              "Logo: [Logo:Logo]\n"
              "Ship to: \n"
              "City: [ShipCity:City]\n"
              "Lines: \n" +
                  kLines + "\n");
    EXPECT_EQ(messages.texts(),
              "The subform \"Empty\" is left out: it has no control that can be dropped.\n");
    EXPECT_EQ(progress.last, (std::pair<std::int64_t, std::int64_t>(5, 5)));
}

TEST_F(Dispatcher, ControlsThatNoPlaceCanBeNamedAfter) {
    const std::string longName(256, 'n');
    load(
        "<db><Form Name='F' CurrentView='1'><Control Name='%'/><Control Caption='Total'/><Control "
        "Name='" +
        longName +
        "'/><Control Name='Sub' ControlType='Subform'><Form><Control Name='#'/>"
        "<Control Name='Lines' ControlType='Subform'><Form HasRecordset='1'><Control "
        "Name='-'/></Form></Control>"
        "</Form></Control><Control Name='Mixed' ControlType='Subform'><Form HasRecordset='1'><Control "
        "Name='\u2603'/>"
        "<Control Name='B'/></Form></Control><Control Name='A'/>"
        "<Control Name='Empty' ControlType='Subform'><Form/></Control>"
        "<Control Name='None' ControlType='Subform'><Form HasRecordset='1'/></Control></Form></db>");
    open();
    EXPECT_TRUE(drop(node("1k")));
    EXPECT_EQ(body(), "Mixed: \n[Mixed:B\n|[MixedB:B] \n|]A: [A:A]\n\n");
    const std::string nothingLeft = " is left out: its name holds no letter, no digit and no underscore.\n";
    const std::string noControl = " is left out: none of its controls can be dropped.\n";
    const std::string isEmpty = " is left out: it has no control that can be dropped.\n";
    EXPECT_EQ(messages.texts(), "The control \"%\"" + nothingLeft +
                                    "The control with the caption \"Total\" is left out: it has no name.\n"

                                    "The control \"" +
                                    longName +
                                    "\" is left out: its name is too long.\n"
                                    "The control \"#\"" +
                                    nothingLeft + "The control \"-\"" + nothingLeft +
                                    "The subform \"Lines\"" + noControl + "The subform \"Sub\"" + noControl +
                                    "The control \"\u2603\"" + nothingLeft + "The subform \"Empty\"" +
                                    isEmpty + "The subform \"None\"" + isEmpty);
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(Dispatcher, ChosenControlsComeInTheirOwnOrder) {
    open();
    const FieldKeys keys{"3K", "11k", "99k", "2k"};
    EXPECT_TRUE(drop(node("1k"), DocumentType::ByView, &keys));
    EXPECT_EQ(body(), "Logo: [Logo:Logo]\nCustomer: [CustomerNo:CustomerNo]\n\n");

    open();
    const FieldKeys strangers{"11k"};
    EXPECT_FALSE(drop(node("1k"), DocumentType::ByView, &strangers));
    EXPECT_EQ(body(), "\n");
}

TEST_F(Dispatcher, AFormNeedsAFreeSelection) {
    open();
    placeAtCaret("Here", "text");
    EXPECT_FALSE(drop(node("1k")));
    EXPECT_EQ(body(), "[Here:text]\n");
    EXPECT_EQ(messages.texts(), "It is impossible to insert the form into current selection.\n");
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(Dispatcher, NodesWithoutAnElementAreNotDropped) {
    open();
    TreeNode& special = tree.Add(0, 0, "Special");
    special.SetTag("NoDrag");
    EXPECT_FALSE(drop(special));
    EXPECT_FALSE(
        CNodeDropper(errors, messages, {}, progress)
            .NodeDrop(node("1k"), word::DocumentPtr{}, xmlNodes, false, DocumentType::ByView, nullptr));
    EXPECT_EQ(body(), "\n");
}

TEST_F(Dispatcher, TwentySpecialPlacesOfAKind) {
    open();
    TreeNode& space = tree.Add(0, 0, "Optional Space");
    space.SetTag("Optional Space");
    TreeNode& lineBreak = tree.Add(0, 0, "Optional Carriage Return");
    lineBreak.SetTag("Optional Carriage Return");

    for (int i = 0; i < 20; ++i) {
        ASSERT_TRUE(drop(space)) << i;
        goTo("OptionalSpace" + std::to_string(i), word::WdCollapseDirection::wdCollapseEnd);
        selection()->TypeText("-");
    }
    EXPECT_EQ(bookmark("OptionalSpace19")->Range()->Text(), " ");
    const std::string full = body();
    EXPECT_FALSE(drop(space));
    EXPECT_EQ(messages.texts(), "The max number of the special bookmarks is exceeded!\n");
    EXPECT_EQ(messages.messages.at(0).icon, MessageIcon::Exclamation);
    EXPECT_EQ(body(), full);
    EXPECT_TRUE(errors.reports.empty());

    EXPECT_TRUE(drop(lineBreak));
    EXPECT_EQ(bookmark("OptionalCarriageReturn0")->Range()->Text(), "\r");

    bookmark("OptionalSpace3")->Range()->SetText("");
    ASSERT_FALSE(document->Bookmarks()->Exists("OptionalSpace3"));
    EXPECT_TRUE(drop(space));
    EXPECT_TRUE(document->Bookmarks()->Exists("OptionalSpace3"));
}

}  // namespace
}  // namespace mergeloom
