#include "DropTest.h"
#include "base/Text.h"
#include "doubles/FaultyWord.h"
#include "droppers/FieldSelection.h"

#include <functional>
#include <vector>

namespace mergeloom {
namespace {

/// Keys: 1 Sheet, 2 to 4 A to C, 5 Foot; 6 Empty; 7 Letter, 8 Town, 9 Lines, 10 Unit Price, 11 2nd, 12 Sum.
constexpr const char* kTables = R"(<db>
  <Table Name="Sheet" CurrentView="2">
    <Control Name="A" Caption="&amp;First:"/><Control Name="B" Caption="Second"/><Control Name="C"/>
    <Control Name="Foot" Section="2"/>
  </Table>
  <Table Name="Empty" CurrentView="2"/>
  <Form Name="Letter" CurrentView="1">
    <Control Name="Town"/>
    <Control Name="Lines" Caption="Items" ControlType="Subform"><Form HasRecordset="1">
      <Control Name="Unit Price"/><Control Name="2nd"/><Control Name="Sum" Section="2"/></Form></Control>
  </Form>
</db>)";

const std::string kSheet = "[SheetT:First:\n|Second\n|C\n|[A:A] \n|[B:B] \n|[C:C] \n|]";
const std::string kLinesTable =
    "[Lines:Unit Price\n|2nd\n|[LinesUnitPrice:UnitPrice] \n|[Linesx2nd:x2nd] \n|]";

class TableDrop : public DropTest {
  protected:
    void SetUp() override { load(kTables); }

    bool dropSheet(const FieldKeys& keys) { return drop(node("1k"), DocumentType::ByView, &keys); }
    /// Puts the caret into the last paragraph.
    void goToEnd() {
        const word::RangePtr table = document->Tables()->Item(document->Tables()->Count())->Range();
        table->Select();
        selection()->Collapse(word::WdCollapseDirection::wdCollapseEnd);
        selection()->TypeText("end");
    }
    std::string bodyXml() {
        body();
        return opc::Package::read(files.files["/shown.docx"], "shown.docx").readPart(kMainPart);
    }
};

TEST_F(TableDrop, ColumnsFollowTheTreeOrTheKeys) {
    struct Case {
        FieldKeys keys;
        std::string expected;
    };
    const std::vector<Case> cases{
        {{"3K", "2k"}, "\n[SheetT:Second\n|First:\n|[B:B] \n|[A:A] \n|]\n"},
        {{"99k", "8k", "5k", ""}, "\n[SheetT:Foot\n|[Foot:Foot] \n|]\n"},
        {{"4k", "4k"}, "\n[SheetT:C\n|C\n|[C:C] \n|[C_ref1:C] \n|]\n"},
        {{"8k"}, "\n"},
        {{}, "\n"},
    };
    for (const Case& c : cases) {
        open();
        EXPECT_EQ(dropSheet(c.keys), c.expected != "\n") << testing::PrintToString(c.keys);
        EXPECT_EQ(body(), c.expected);
    }
    open();
    EXPECT_TRUE(drop(node("1k")));
    EXPECT_EQ(body(), "\n" + kSheet + "\n");
    EXPECT_FALSE(drop(node("6k")));
    EXPECT_EQ(messages.texts(), "");
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(TableDrop, TheCaretStandsBehindTheTable) {
    open();
    selection()->TypeText("before");
    ASSERT_TRUE(drop(node("1k")));
    selection()->TypeText("behind");
    EXPECT_EQ(body(), "before\n" + kSheet + "behind\n");
}

TEST_F(TableDrop, NeedsAFreeSelection) {
    const std::string row = "<w:tr><w:tc><w:p/></w:tc></w:tr>";
    const std::string text = "<w:r><w:t>text</w:t></w:r>";
    const std::vector<std::string> bodies{
        "<w:tbl>" + row + row + "</w:tbl><w:p/>",
        "<w:p><w:bookmarkStart w:id='0' w:name='b'/>" + text + "<w:bookmarkEnd w:id='0'/></w:p>",
    };
    for (const std::string& given : bodies) {
        open(given);
        messages.messages.clear();
        const std::string before = body();
        EXPECT_FALSE(drop(node("1k"))) << given;
        EXPECT_EQ(body(), before);
        EXPECT_EQ(messages.texts(), "It is impossible to insert the table into current selection.\n");
    }
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(TableDrop, ATableMayStandRightBelowAnother) {
    open();
    EXPECT_TRUE(drop(node("1k")));
    EXPECT_TRUE(drop(node("9k")));
    EXPECT_EQ(body(), "\n" + kSheet + "\n" + kLinesTable + "\n");
    EXPECT_EQ(messages.texts(), "");
}

TEST_F(TableDrop, TakesThePlaceOfTheEarlierTable) {
    open();
    ASSERT_TRUE(drop(node("1k")));
    goToEnd();
    EXPECT_TRUE(dropSheet({"2k"}));
    EXPECT_EQ(body(), "\nend\n[SheetT:First:\n|[A:A] \n|]\n");
    EXPECT_TRUE(document->Undo(1));
    EXPECT_EQ(body(), "\n" + kSheet + "end\n");
}

/// A second drop replaces both tables of the first one.
TEST_F(TableDrop, OneDropKeepsAllItsTables) {
    const std::string lines =
        "<Control Name='Lines' ControlType='Subform'><Form HasRecordset='1'>"
        "<Control Name='P'/></Form></Control>";
    const std::string part =
        "<Control Name='Part' ControlType='Subform'><Form>" + lines + "</Form></Control>";
    load("<db><Form Name='F' CurrentView='1'><Control Name='LinesP'/>" + part + part + "</Form></db>");
    open();
    EXPECT_TRUE(drop(node("1k")));
    const std::string before = "LinesP: [LinesP:LinesP]\nPart: \nLines: \n";
    EXPECT_EQ(body(), before +
                          "[Lines:P\n|[LinesP_ref1:P] \n|]Part: \nLines: \n"
                          "[Lines_ref1:P\n|[LinesP_ref2:P] \n|]\n");
    EXPECT_EQ(messages.texts(),
              "This drop has made the table \"Lines\" already; the further one is named \"Lines_ref1\".\n");
    EXPECT_TRUE(errors.reports.empty());

    goToEnd();
    const FieldKeys parts{"3k", "6k"};
    EXPECT_TRUE(drop(node("1k"), DocumentType::ByView, &parts));
    EXPECT_EQ(document->Tables()->Count(), 2);
}

TEST_F(TableDrop, TellsTheNameThatAFurtherTableGets) {
    const std::string lines =
        "<Control Name='Lines' ControlType='Subform'><Form HasRecordset='1'><Control "
        "Name='P'/></Form></Control>";
    load("<db><Form Name='F' CurrentView='1'><Control Name='Lines_ref1'/>" + lines + lines + "</Form></db>");
    open();
    EXPECT_TRUE(drop(node("1k")));
    EXPECT_TRUE(document->Bookmarks()->Exists("Lines_ref1_ref1"));
    EXPECT_EQ(
        messages.texts(),
        "This drop has made the table \"Lines\" already; the further one is named \"Lines_ref1_ref1\".\n");
}

TEST_F(TableDrop, ABookmarkWithoutItsTable) {
    const std::string table = "<w:tbl><w:tr><w:tc>%</w:tc><w:tc><w:p/></w:tc></w:tr></w:tbl>";
    const auto marked = [](const std::string& text) {
        return "<w:p><w:bookmarkStart w:id='0' w:name='SheetT'/><w:r><w:t>" + text +
               "</w:t></w:r><w:bookmarkEnd w:id='0'/></w:p>";
    };
    struct Case {
        const char* what;
        std::string given, expected;
    };
    const std::vector<Case> cases{
        {"its name moves to the new table", marked("old text"), "\n[SheetT:C\n|[C:C] \n|]\nold text\n"},
        {"a field keeps its name, whatever its characters", marked("Sheet-T"),
         "\n[SheetT_ref1:C\n|[C:C] \n|]\n[SheetT:Sheet-T]\n"},
        {"a field keeps its name", marked("SheetT"), "\n[SheetT_ref1:C\n|[C:C] \n|]\n[SheetT:SheetT]\n"},
        {"a place in another table does not take that along",
         replaceAll(table, "%", marked("SheetT")) + "<w:p/>",
         "\n[SheetT_ref1:C\n|[C:C] \n|]\n[SheetT:SheetT]\n|\n|\n"},
    };
    for (const Case& c : cases) {
        open("<w:p/>" + c.given);
        EXPECT_TRUE(dropSheet({"4k"})) << c.what;
        EXPECT_EQ(body(), c.expected) << c.what;
    }
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(TableDrop, SeparateFieldsOfItsSourceGo) {
    open();
    for (const char* name :
         {"LinesUnitPrice", "LinesUnitPrice_bv", "Linesx2nd_ref7", "Linesx2nd_REF8", "LinesSum"}) {
        placeAtCaret(name, name);
        selection()->TypeText(" ");
    }
    const std::string before = body();
    messages.okCancelAnswer = MessageAnswer::Cancel;
    for (const char* key : {"9k", "7k"}) {
        EXPECT_FALSE(drop(node(key)));
        EXPECT_EQ(body(), before) << "cancelled";
    }
    messages.okCancelAnswer = MessageAnswer::Ok;
    messages.messages.clear();
    EXPECT_TRUE(drop(node("9k")));
    EXPECT_EQ(body(), "   [Linesx2nd_REF8:Linesx2nd_REF8] [LinesSum:LinesSum] \n" + kLinesTable + "\n");
    ASSERT_EQ(messages.messages.size(), 1U);
    EXPECT_EQ(messages.messages[0].text,
              "You can't have fields from the same data source table\n"
              "both inside a Word table and as separate tablefields\n"
              "The separate tablefields will be removed");
    EXPECT_EQ(messages.messages[0].buttons, MessageButtons::OkCancel);
    EXPECT_EQ(messages.messages[0].icon, MessageIcon::Exclamation);

    goToEnd();
    EXPECT_TRUE(drop(node("9k"))) << "the earlier table's own fields go with it";
    EXPECT_EQ(messages.messages.size(), 1U);
}

TEST_F(TableDrop, APictureOfTheSameDropKeepsItsName) {
    load(R"(<db><Form Name="F" CurrentView="1"><Control Name="Lines" Image="p.gif"/>
        <Control Name="Lines" ControlType="Subform"><Form HasRecordset="1"><Control Name="P"/></Form></Control>
        </Form></db>)");
    pictures["p.gif"] = "/p.gif";
    files.files["/p.gif"] = std::string("GIF89a\x08\0\x08\0\0\0\0;", 14);
    open();
    EXPECT_TRUE(drop(node("1k")));
    EXPECT_EQ(body(), "Lines: [Lines:<picture>]\nLines: \n[Lines_ref1:P\n|[LinesP:P] \n|]\n");
    EXPECT_TRUE(errors.reports.empty());
}

/// The separate fields have no prefix, like the places of an object.
TEST_F(TableDrop, SeparateFieldsOfAnObjectGo) {
    load(R"(<db><Table Name="Order" CurrentView="2"><Control Name="Date"/></Table>
        <Table Name="Bill" CurrentView="2"><Control Name="Date"/></Table></db>)");
    open();
    ASSERT_TRUE(drop(node("3k")));
    for (const char* name : {"OrderDate", "Date_ref1"}) {
        placeAtCaret(name, name);
        selection()->TypeText(" ");
    }
    const std::string bill = "\n[BillT:Date\n|[Date:Date] \n|]";
    ASSERT_EQ(body(), bill + "[OrderDate:OrderDate] [Date_ref1:Date_ref1] \n");
    EXPECT_TRUE(drop(node("1k")));
    EXPECT_EQ(messages.messages.size(), 1U);
    EXPECT_EQ(body(), bill + "[OrderDate:OrderDate]  \n[OrderT:Date\n|[Date_ref1:Date] \n|]\n")
        << "neither another field nor the field of another table";
}

TEST_F(TableDrop, ManyColumnsTakeASmallerFont) {
    struct Case {
        int columns;
        std::string expectedHalfPoints;
    };
    const std::vector<Case> cases{{10, ""},   {11, "20"}, {15, "20"}, {16, "16"},
                                  {20, "16"}, {21, "14"}, {63, "14"}};
    for (const Case& c : cases) {
        open();
        ASSERT_TRUE(dropSheet(FieldKeys(static_cast<std::size_t>(c.columns), "4k")));
        const std::string xml = bodyXml();
        const std::string size = "<w:sz w:val=\"" + c.expectedHalfPoints + "\"/>";
        EXPECT_EQ(xml.find("<w:sz ") == std::string::npos, c.expectedHalfPoints.empty()) << c.columns;
        EXPECT_EQ(xml.find(size) == std::string::npos, c.expectedHalfPoints.empty()) << c.columns;
    }
}

TEST_F(TableDrop, MoreColumnsThanWordTakesChangeNothing) {
    open();
    EXPECT_FALSE(dropSheet(FieldKeys(64, "4k")));
    EXPECT_EQ(body(), "\n");
    ASSERT_EQ(messages.messages.size(), 1U);
    EXPECT_EQ(messages.messages[0].text, "A Word table has at most 63 columns; 64 were asked for.");
    EXPECT_TRUE(errors.reports.empty());
}

TEST_F(TableDrop, ASubformIsNoColumn) {
    open();
    const FieldKeys keys{"8k", "9k"};
    EXPECT_FALSE(drop(node("7k"), DocumentType::Table, &keys));
    EXPECT_EQ(body(), "\n");
    EXPECT_EQ(messages.texts(), "The subform \"Items\" cannot be a column of a table.\n");
}

TEST_F(TableDrop, LinkedFieldsStandUnderTheFieldTheyServe) {
    load(R"xml(<db><Query Name="Q" CurrentView="2">
        <Control Name="Total" ControlSource="=Sum([price]*[Qty])/[Total]"/>
        <Control Name="Price" ControlSource="Price"/>
        <Control Name="Qty"/>
        <Control Name="Mean" ControlSource="=Avg([Price])+[Rest]+[None]"/>
        <Control Name="Rest" ControlSource="=([Price])"/>
        <Control Name="Head" Section="1"/></Query></db>)xml");
    struct Case {
        FieldKeys keys;
        std::string expected;
    };
    const std::vector<Case> cases{
        {{"2k"}, "[QT:Total\n|[Total:Total] \n|[Price:Price] \n|[Qty:Qty] \n|]"},
        {{"2k", "3k"}, "[QT:Total\n|Price\n|[Total:Total] \n|[Price:Price] \n|[Qty:Qty] \n|\n|]"},
        {{"5k", "2k"},
         "[QT:Mean\n|Total\n|[Mean:Mean] \n|[Total:Total] \n|[Price:Price] \n|[Qty:Qty] \n|[Rest:Rest] "
         "\n|\n|]"},
        {{"3k", "4k"}, "[QT:Price\n|Qty\n|[Price:Price] \n|[Qty:Qty] \n|]"},
    };
    for (const Case& c : cases) {
        open();
        EXPECT_TRUE(drop(node("1k"), DocumentType::ByView, &c.keys));
        EXPECT_EQ(body(), "\n" + c.expected + "\n") << testing::PrintToString(c.keys);
    }
}

/// A dialog in which a function acts as the user.
class PlayedDialog final : public FieldDialog {
  public:
    explicit PlayedDialog(std::function<void(FieldSelection&)> user) : user_(std::move(user)) {}
    void Show(FieldSelection& fields) override {
        EXPECT_TRUE(fields.Visible());
        user_(fields);
        EXPECT_FALSE(fields.Visible());
    }

  private:
    std::function<void(FieldSelection&)> user_;
};

TEST_F(TableDrop, TheUserChoosesTheColumns) {
    struct Case {
        const char* what;
        std::function<void(FieldSelection&)> user;
        std::string expectedSheet, expectedLetter;
    };
    const std::vector<Case> cases{
        {"moved and left out",
         [](FieldSelection& fields) {
             fields.MoveListItem(false);
             fields.SetSelected(1, false);
             fields.Insert();
         },
         "\n[SheetT:Second\n|C\n|[B:B] \n|[C:C] \n|]\n",
         "Town: [Town:Town]\nItems: \n[Lines:2nd\n|[Linesx2nd:x2nd] \n|]\n"},
        {"closed", [](FieldSelection& fields) { fields.SetVisible(false); }, "\n", "Town: [Town:Town]\n\n"},
        {"nothing selected",
         [](FieldSelection& fields) {
             fields.SelectAll(false);
             fields.Insert();
         },
         "\n", "Town: [Town:Town]\n\n"},
    };
    for (const Case& c : cases) {
        PlayedDialog played{c.user};
        dialog = &played;
        open();
        EXPECT_EQ(drop(node("1k")), c.expectedSheet != "\n") << c.what;
        EXPECT_EQ(body(), c.expectedSheet) << c.what;
        open();
        EXPECT_TRUE(drop(node("7k"))) << c.what;
        EXPECT_EQ(body(), c.expectedLetter) << c.what;
    }
}

/// After a failure of any step, the document is unchanged, with its former table and its separate fields.
TEST_F(TableDrop, AFailureAtAnyStepChangesNothing) {
    open();
    ASSERT_TRUE(drop(node("9k")));
    goToEnd();
    placeAtCaret("LinesUnitPrice_ref1", "x");
    selection()->TypeText(" ");
    const std::string before = body();
    int failingCall = 1;
    for (bool failed = true; failed; ++failingCall) {
        ASSERT_LT(failingCall, 200) << "the drop never ends";
        CallCounter counter{failingCall};
        const word::DocumentPtr whole = document;
        document = std::make_shared<FaultyDocument>(whole, counter);
        const bool dropped = drop(node("7k"));
        failed = counter.hasFailed();
        document = whole;
        EXPECT_EQ(dropped, !failed) << failingCall;
        if (failed) {
            EXPECT_EQ(body(), before) << failingCall;
        }
    }
    EXPECT_GT(failingCall, 15);
    EXPECT_EQ(body(), "\nend Town: [Town:Town]\nItems: \n" + kLinesTable + "\n");
}

TEST_F(TableDrop, LabelDocumentsHoldPlainPlaces) {
    open();
    EXPECT_TRUE(drop(node("7k"), DocumentType::LabelDocument));
    EXPECT_EQ(body(), "[Town:Town] \n") << "subforms are left out";

    open();
    const FieldKeys keys{"9k", "8k"};
    EXPECT_TRUE(drop(node("7k"), DocumentType::LabelDocument, &keys));
    EXPECT_EQ(body(), "\n" + kLinesTable + "^[Town:Town] \n") << "but for those that are asked for";

    open("<w:tbl><w:tr><w:tc><w:p/></w:tc></w:tr></w:tbl><w:p/>");
    EXPECT_FALSE(drop(node("7k"), DocumentType::LabelDocument));
    EXPECT_EQ(messages.texts(), "It is impossible to insert the form into current selection.\n");
}

}  // namespace
}  // namespace mergeloom
