#include "text/StoryTest.h"

#include <gtest/gtest.h>

#include <functional>

namespace mergeloom::embedded {
namespace {

using std::string;
using Edit = std::function<void(OpenStory&)>;

Edit insert(int position, const string& text) {
    return [=](OpenStory& story) { story.editor.insertText({position}, text); };
}
Edit erase(int start, int end) {
    return [=](OpenStory& story) { story.eraser.erase({start}, {end}); };
}

/// A line of XML before and after an edit, without the prefixes of elements. A refused edit has a reason and
/// leaves the line unchanged.
struct Case {
    const char* what;
    string body;
    Edit edit;
    string expected;
};

void check(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        OpenPart part("<document xmlns=\"" + kWordNamespace + "\"><body>" + c.body + "</body></document>");
        part.journal.start();
        const string error = errorOf([&] { c.edit(part.body()); });
        EXPECT_EQ(error.empty() ? part.bodyXml() : error, c.expected);
        EXPECT_TRUE(error.empty() || part.bodyXml() == c.body) << part.bodyXml();
        part.journal.undo();
        EXPECT_EQ(part.bodyXml(), c.body);
    }
}

const string kBold = "<rPr><b/></rPr>";
const string kDeleted = "<del><r><delText>old</delText></r></del>";
string paragraph(const string& text) {
    return "<p><r><t>" + text + "</t></r></p>";
}
string table(const string& cells) {
    return "<tbl><tr>" + cells + "</tr></tbl>";
}
string cell(const string& text) {
    return "<tc>" + paragraph(text) + "</tc>";
}

TEST(StoryEditor, putsTextWhereItBelongs) {
    check({
        {"before a run", "<p><r>" + kBold + "<t>ab</t></r></p>", insert(0, "x"),
         "<p><r>" + kBold + "<t>x</t></r><r>" + kBold + "<t>ab</t></r></p>"},
        {"in an empty paragraph, with the formatting of its mark",
         "<p><pPr><pStyle w:val=\"s\"/>" + kBold + "</pPr></p>", insert(0, "x"),
         "<p><pPr><pStyle w:val=\"s\"/>" + kBold + "</pPr><r>" + kBold + "<t>x</t></r></p>"},
        {"inside a run", paragraph("ab"), insert(1, "x"), paragraph("axb")},
        {"behind a run", paragraph("ab"), insert(2, "x"), paragraph("abx")},
        {"between a tab and text of one run", "<p><r><tab/><t>b</t></r></p>", insert(1, "x"),
         "<p><r><tab/></r><r><t>x</t></r><r><t>b</t></r></p>"},
        {"blanks are kept", paragraph("ab"), insert(2, " "),
         "<p><r><t xml:space=\"preserve\">ab </t></r></p>"},
        {"markup and letters beyond ASCII", paragraph("a"), insert(1, "<&>\u00FC\U0001F600"),
         paragraph("a&lt;&amp;&gt;\u00FC\U0001F600")},
        {"inside a character of two units", paragraph("\U0001F600"), insert(1, "x"),
         "The range from 1 to 1 begins or ends inside a character."},
        {"behind a character of two units", paragraph("\U0001F600b"), insert(2, "x"),
         paragraph("\U0001F600xb")},
        {"an empty paragraph gives its mark's formatting",
         "<p><pPr><rPr><ins w:id=\"1\"/><b/></rPr></pPr></p>", insert(0, "x"),
         "<p><pPr><rPr><ins w:id=\"1\"/><b/></rPr></pPr><r>" + kBold + "<t>x</t></r></p>"},
        {"new text was never formatted otherwise", "<p><r><rPr><b/><rPrChange/></rPr><tab/></r></p>",
         insert(1, "x"), "<p><r><rPr><b/><rPrChange/></rPr><tab/></r><r>" + kBold + "<t>x</t></r></p>"},
        {"before a hyperlink", "<p><hyperlink><r><t>a</t></r></hyperlink></p>", insert(0, "x"),
         "<p><r><t>x</t></r><hyperlink><r><t>a</t></r></hyperlink></p>"},
        {"behind a hyperlink", "<p><hyperlink><r><t>a</t></r></hyperlink></p>", insert(1, "x"),
         "<p><hyperlink><r><t>a</t></r></hyperlink><r><t>x</t></r></p>"},
        {"between two content controls",
         "<p><sdt><sdtContent><r><t>a</t></r></sdtContent></sdt><sdt><sdtContent><r><t>b</t></r></"
         "sdtContent></sdt></p>",
         insert(1, "x"),
         "<p><sdt><sdtContent><r><t>a</t></r></sdtContent></sdt><r><t>x</t></r><sdt><sdtContent><r><t>b</t></"
         "r>"
         "</sdtContent></sdt></p>"},
        {"into deleted text", "<p>" + kDeleted + "</p>", insert(1, "x"), "No text can stand at this place."},
        {"between runs of deleted text",
         "<p><del><r><delText>a</delText></r><r><delText>b</delText></r></del></p>", insert(1, "x"),
         "The text at this place is marked as deleted."},
        {"before deleted text", "<p>" + kDeleted + "</p>", insert(0, "x"),
         "<p><r><t>x</t></r>" + kDeleted + "</p>"},
        {"between deletions", "<p>" + kDeleted + kDeleted + "</p>", insert(3, "x"),
         "<p>" + kDeleted + "<r><t>x</t></r>" + kDeleted + "</p>"},
        {"behind an end-of-cell mark", table(cell("a")) + "<p/>", insert(2, "x"),
         "No text can stand at this place."},
        {"behind the story", paragraph("a"), insert(2, "x"), "No text can stand behind the last paragraph."},
    });
}

TEST(StoryEditor, turnsControlCharactersIntoElements) {
    check({
        {"tabs and breaks", "<p/>", insert(0, "a\tb\vc\f\x01"),
         "<p><r><t>a</t></r><r><tab/></r><r><t>b</t></r><r><br/></r><r><t>c</t></r><r><br "
         "w:type=\"page\"/></r></p>"},
        {"all ends of paragraphs", "<p/>", insert(0, "a\r\nb\nc\rd"),
         paragraph("a") + paragraph("b") + paragraph("c") + paragraph("d")},
        {"a paragraph splits with its properties", "<p><pPr><jc/></pPr><r>" + kBold + "<t>a b</t></r></p>",
         insert(1, "\r"),
         "<p><pPr><jc/></pPr><r>" + kBold + "<t>a</t></r></p><p><pPr><jc/></pPr><r>" + kBold +
             "<t xml:space=\"preserve\"> b</t></r></p>"},
        {"a section ends with the last of them", "<p><pPr><jc/><sectPr/></pPr></p>", insert(0, "\r"),
         "<p><pPr><jc/></pPr></p><p><pPr><jc/><sectPr/></pPr></p>"},
        {"a hyperlink splits", "<p><hyperlink w:anchor=\"A\"><r><t>ab</t></r></hyperlink></p>",
         insert(1, "\r"),
         "<p><hyperlink w:anchor=\"A\"><r><t>a</t></r></hyperlink></p><p><hyperlink "
         "w:anchor=\"A\"><r><t>b</t></r>"
         "</hyperlink></p>"},
        {"no paragraph ends in a field", "<p><fldSimple w:instr=\"X\"><r><t>ab</t></r></fldSimple></p>",
         [](OpenStory& story) { story.editor.insertParagraphMark({5}); },
         "No paragraph can end at this place."},
    });
}

TEST(StoryEraser, takesOutRunsAndParagraphs) {
    check({
        {"over runs", "<p><r><t>ab</t></r><r>" + kBold + "<tab/></r><r><t>cd</t></r></p>", erase(1, 4),
         "<p><r><t>a</t></r><r><t>d</t></r></p>"},
        {"over paragraphs",
         "<p><pPr><b/></pPr><r><t>ab</t></r></p><p/><p><pPr><i/></pPr><r><t>cd</t></r></p>", erase(1, 5),
         "<p><pPr><i/></pPr><r><t>a</t></r><r><t>d</t></r></p>"},
        {"the story's last mark stays", paragraph("ab"), erase(0, 3), "<p/>"},
        {"half a character", paragraph("\U0001F600"), erase(0, 1),
         "The range from 0 to 1 begins or ends inside a character."},
        {"an emptied control around blocks goes",
         "<sdt><sdtContent>" + paragraph("a") + "</sdtContent></sdt>" + paragraph("b"), erase(0, 2),
         paragraph("b")},
    });
}

TEST(StoryEraser, takesOutWholeTablesOnly) {
    const string outer = table("<tc>" + table(cell("a")) + "<p/></tc>");
    check({
        {"a whole table", paragraph("a") + table(cell("b") + cell("c")) + paragraph("d"), erase(2, 7),
         paragraph("a") + paragraph("d")},
        {"from text over a table to text", paragraph("ab") + table(cell("c")) + paragraph("de"), erase(1, 7),
         "<p><r><t>a</t></r><r><t>e</t></r></p>"},
        {"all of a cell", table(cell("ab") + cell("c")) + "<p/>", erase(0, 3),
         table("<tc><p/></tc>" + cell("c")) + "<p/>"},
        {"a cell that begins with a table", outer + "<p/>", erase(0, 4), table("<tc><p/></tc>") + "<p/>"},
        {"over cells", table(cell("ab") + cell("c")) + "<p/>", erase(1, 4),
         "The range covers a part of a table's structure."},
        {"a row's mark", table(cell("a")) + "<p/>", erase(2, 3),
         "The range covers a part of a table's structure."},
        {"text that would run into a table", paragraph("ab") + table(cell("c")) + "<p/>", erase(1, 3),
         "A paragraph cannot run into a table."},
        {"an empty paragraph before a table", "<p/>" + table(cell("c")) + "<p/>", erase(0, 1),
         table(cell("c")) + "<p/>"},
    });
}

TEST(StoryEraser, takesOutWholeFieldsOnly) {
    const string field =
        "<p><r><fldChar w:fldCharType=\"begin\"/></r><r><instrText>X</instrText></r>"
        "<r><fldChar w:fldCharType=\"separate\"/></r><r><t>1</t></r>"
        "<r><fldChar w:fldCharType=\"end\"/></r></p>";
    const string simple = "<p><fldSimple w:instr=\"X\"><r><t>1</t></r></fldSimple></p>";
    const char* const refusal = "The range covers only one end of a field.";
    check({
        {"a field", field, erase(0, 5), "<p/>"},
        {"its begin", field, erase(0, 1), refusal},
        {"its separator", field, erase(2, 4), refusal},
        {"its end", field, erase(3, 5), refusal},
        {"a simple field", simple, erase(0, 5), "<p/>"},
        {"a part of a simple field's begin", simple, erase(1, 4), refusal},
        {"a simple field's result", simple, erase(3, 4), "<p><fldSimple w:instr=\"X\"/></p>"},
    });
}

TEST(StoryEraser, letsBookmarksGoWithTheirText) {
    const auto body = [](const string& inside) { return "<p>" + inside + "<r><t>z</t></r></p>"; };
    const string start = "<bookmarkStart w:id=\"1\" w:name=\"A\"/>";
    const string end = "<bookmarkEnd w:id=\"1\"/>";
    const string run = "<r><t>ab</t></r>";
    check({
        {"all of it", body(start + run + end), erase(0, 2), body("")},
        {"its start", body(start + run + end), erase(0, 1), body(start + "<r><t>b</t></r>" + end)},
        {"an empty one inside", body(run + start + end + run), erase(1, 3),
         body("<r><t>a</t></r><r><t>b</t></r>")},
        {"an empty one at an end stays", body(start + end + run), erase(0, 2), body(start + end)},
        {"the end in a table", body(start + run) + table("<tc>" + body(end) + "</tc>") + "<p/>", erase(4, 7),
         body(start + run) + end + "<p/>"},
        {"the start in a field",
         "<p><fldSimple w:instr=\"X\">" + start + run + "</fldSimple>" + run + end + "</p>", erase(0, 6),
         "<p>" + start + run + end + "</p>"},
    });
}

TEST(StoryEraser, letsTheBookmarksOfATextBoxGoWithIt) {
    const string box = "<p><bookmarkStart w:id=\"1\" w:name=\"A\"/><bookmarkEnd w:id=\"1\"/></p>";
    OpenPart part("<document xmlns=\"" + kWordNamespace + "\"><body><p><r><t>a</t></r><r><drawing><anchor>" +
                  "<txbxContent>" + box +
                  "</txbxContent></anchor></drawing></r><r><t>b</t></r></p></body></document>");
    part.journal.start();
    ASSERT_NE(part.table.find("a"), nullptr);
    part.body().eraser.erase({0}, {2});
    EXPECT_EQ(part.table.find("a"), nullptr);
    EXPECT_EQ(part.bodyXml(), "<p/>");
    part.journal.undo();
    EXPECT_NE(part.table.find("a"), nullptr);
}

}  // namespace
}  // namespace mergeloom::embedded
