#include "contract/word/WordFixture.h"

namespace mergeloom {
namespace {

class OfficeRanges : public WordOffice {};
INSTANTIATE_TEST_SUITE_P(Offices, OfficeRanges, kOffices, nameOfOffice);

TEST_P(OfficeRanges, LiveThroughEdits) {
    struct Case {
        std::int64_t start, end;  ///< what is replaced
        std::string text;
        std::string expected;  ///< where the range over 4-7 is then
    };
    const std::vector<Case> cases{
        {0, 0, "xx", "6-9"}, {4, 4, "xx", "4-9"}, {5, 5, "xx", "4-9"}, {7, 7, "xx", "4-7"},
        {9, 9, "xx", "4-7"}, {0, 2, "", "2-5"},   {2, 5, "", "2-4"},   {5, 6, "", "4-6"},
        {4, 7, "", "4-4"},   {3, 8, "", "3-3"},   {6, 9, "", "4-6"},   {0, 1, "\r\r", "5-8"},
    };
    for (const Case& c : cases) {
        add();
        selection->TypeText("one two three");
        const word::RangePtr range = mark("Two", 4, 7)->Range();
        mark("Edited", c.start, c.end)->Range()->SetText(c.text);
        EXPECT_EQ(at(*range), c.expected) << c.start << "-" << c.end << " " << c.text;
    }
}

TEST_P(OfficeRanges, CompareTheirEnds) {
    const std::string row = cellXml(para("a")) + cellXml(para("b"));
    open(para("x") + tableXml({row, row}) + "<w:p>" + marked(1, "Behind", run("y")) + "</w:p>");
    using enum word::RangeEnd;
    const word::RangePtr table = document->Tables()->Item(1)->Range();
    const word::RangePtr first = cell(1, 1, 1)->Range();
    const word::RangePtr last = cell(1, 2, 2)->Range();
    const word::RangePtr behind = bookmark("Behind")->Range();
    EXPECT_TRUE(table->compare(Start, *first, Start) == 0);
    EXPECT_TRUE(table->compare(End, *last, End) > 0);
    EXPECT_TRUE(table->compare(End, *behind, Start) == 0);
    EXPECT_TRUE(behind->compare(Start, *table, End) == 0);
    EXPECT_TRUE(behind->compare(End, *table, End) > 0);
    EXPECT_TRUE(last->compare(Start, *first, End) > 0);
    EXPECT_FALSE(table->isEmpty());
    goTo("Behind");
    EXPECT_TRUE(selection->Range()->isEmpty());
}

TEST_P(OfficeRanges, PreviousIsTheCharacterBefore) {
    add();
    EXPECT_EQ(selection->Range()->Previous(word::WdUnits::wdCharacter, 1), nullptr);
    selection->TypeText("abc");
    const word::RangePtr previous = selection->Range()->Previous(word::WdUnits::wdCharacter, 1);
    EXPECT_EQ(previous->Text(), "c");
    EXPECT_EQ(previous->Previous(word::WdUnits::wdCharacter, 2)->Text(), "a");
}

TEST_P(OfficeRanges, ReadTablesWithTheirMarks) {
    const std::string inner = tableXml({cellXml(para("in")) + cellXml(para(""))});
    open(para("before") + tableXml({cellXml(para("a") + para("b")) + cellXml(inner + para("c"))}) + "<w:p>" +
         marked(1, "Behind", run("behind")) + "</w:p>");
    const word::RangePtr whole = document->Tables()->Item(1)->Range();
    EXPECT_EQ(whole->Text(), "a\rb\r\ain\r\a\r\a\r\ac\r\a\r\a");
    EXPECT_EQ(at(*whole), "7-19");
    EXPECT_EQ(at("Behind"), "19-25");
    EXPECT_EQ(cell(1, 1, 1)->Range()->Text(), "a\rb\r\a");
    EXPECT_EQ(cell(1, 1, 2)->Range()->Tables()->Count(), 1);
    mark("Over", 3, 22);
    EXPECT_EQ(bookmark("Over")->Range()->Text(), "ore\ra\rb\r\ain\r\a\r\a\r\ac\r\a\r\abeh");
}

TEST_P(OfficeRanges, OtherStoriesAreTextsOfTheirOwn) {
    openFile(fileWithStories(
        "<w:p>" + run("body") + kFootnoteReference + "</w:p><w:p>" + marked(1, "Body", run("more")) +
            "</w:p>",
        tableXml({cellXml("<w:p>" + marked(2, "Head", run("head")) + "</w:p>")}, 1) + para("below"),
        "<w:p>" + marked(3, "Note", run("note")) + "</w:p>"));
    const std::vector<std::vector<std::string>> cases{{"Body", "body", "6-10", "more"},
                                                      {"Head", "header 1", "0-4", "head"},
                                                      {"Note", "footnote 1", "0-4", "note"}};
    for (const std::vector<std::string>& c : cases) {
        const word::RangePtr range = bookmark(c[0])->Range();
        EXPECT_EQ(range->storyName(), c[1]);
        EXPECT_EQ(at(c[0]), c[2]) << c[0];
        EXPECT_EQ(range->Text(), c[3]);
        goToEnd(c[0]);
        selection->TypeText("!");
        document->Bookmarks()->Add("In" + c[0], *selection->Range()->Previous(word::WdUnits::wdCharacter, 1));
    }
    document->SaveAs("/stories.docx", word::WdSaveFormat::wdFormatXMLDocument);
    document = start(OfficeKind::Embedded)->Documents()->Open("/stories.docx");
    for (const std::vector<std::string>& c : cases) {
        EXPECT_EQ(bookmark("In" + c[0])->Range()->Text(), "!") << c[0];
        EXPECT_EQ(bookmark("In" + c[0])->Start(), bookmark(c[0])->End()) << c[0];
        EXPECT_EQ(bookmark(c[0])->Range()->Text(), c[3]);
    }
}

TEST_P(OfficeRanges, StandInTextBoxes) {
    openFile(wordFile("<w:p>" + run("a") +
                      "<w:r><w:pict xmlns:v='urn:schemas-microsoft-com:vml'><v:shape "
                      "style='width:100pt;height:50pt' type='#t'>"
                      "<v:textbox><w:txbxContent><w:p>" +
                      marked(1, "Boxed", run("box")) +
                      "</w:p></w:txbxContent></v:textbox></v:shape></w:pict></w:r>" +
                      marked(2, "Behind", run("b")) + "</w:p>"));
    EXPECT_EQ(bookmark("Boxed")->Range()->Text(), "box");
    EXPECT_EQ(bookmark("Boxed")->Range()->storyName(), "text box 1");
    EXPECT_EQ(bookmark("Behind")->Range()->Text(), "b");
    goTo("Behind");
    selection->TypeText("x");
    EXPECT_EQ(bookmark("Behind")->Range()->Text(), "xb");
}

}  // namespace
}  // namespace mergeloom
