#include "base/AutomationError.h"
#include "doubles/MemoryFileStore.h"
#include "doubles/WordFiles.h"
#include "office/embedded/word/EmbeddedOffice.h"
#include "office/model/Undo.h"
#include "office/model/word/Application.h"
#include "office/model/word/Bookmarks.h"
#include "office/model/word/Document.h"
#include "office/model/word/Range.h"
#include "office/model/word/Selection.h"

#include <gtest/gtest.h>

#include <memory>

namespace mergeloom {
namespace {

using std::string;

const string kBox =
    "<w:p><w:bookmarkStart w:id=\"5\" w:name=\"Boxed\"/><w:r><w:t>box</w:t></w:r>"
    "<w:bookmarkEnd w:id=\"5\"/></w:p>";
const string kTextBox = "<w:r><mc:AlternateContent xmlns:mc=\"m\"><mc:Choice><w:drawing><w:txbxContent>" +
                        kBox +
                        "</w:txbxContent></w:drawing></mc:Choice><mc:Fallback><w:pict><w:txbxContent>" +
                        kBox + "</w:txbxContent></w:pict></mc:Fallback></mc:AlternateContent></w:r>";

string storyPart(const string& element, const string& inside) {
    return "<w:" + element + " xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">" +
           inside + "</w:" + element + ">";
}

/// Returns a document file with a header, a footnote and a comment in addition to its body.
string richFile(const string& body) {
    opc::Package package = opc::Package::read(wordFile(body), "rich.docx");
    const auto add = [&](const string& type, const string& name, const string& xml) {
        package.addPart(name, "application/xml", xml);
        package.relationshipsOf(kMainPart).addPart(
            opc::officeRelationshipType(type, opc::Conformance::Transitional), name);
    };
    add("header", "/word/header1.xml",
        storyPart("hdr",
                  "<w:p><w:bookmarkStart w:id=\"8\" w:name=\"Head\"/><w:r><w:t>head</w:t></w:r>"
                  "<w:bookmarkEnd w:id=\"8\"/></w:p>"));
    add("footnotes", "/word/footnotes.xml",
        storyPart("footnotes",
                  "<w:footnote w:type=\"separator\" w:id=\"-1\"><w:p/></w:footnote><w:footnote w:id=\"2\">"
                  "<w:p><w:r><w:t>note</w:t></w:r></w:p></w:footnote>"));
    add("comments", "/word/comments.xml",
        storyPart("comments",
                  "<w:comment w:id=\"40\"><w:p><w:bookmarkStart w:id=\"2147483647\" w:name=\"High\"/>"
                  "<w:bookmarkEnd w:id=\"2147483647\"/></w:p></w:comment>"));
    return packageBytes(package);
}

class EmbeddedDocumentTest : public testing::Test {
  protected:
    void open(const string& body) {
        files.files["/a.docx"] = richFile(body);
        document = application->Documents()->Open("/a.docx");
        selection = application->Selection();
    }
    /// Returns a range of the body. The bookmark from which it is made becomes empty at the start again.
    word::RangePtr range(int start, int end) {
        const word::BookmarkPtr place = bookmark("Place");
        place->SetEnd({end});
        place->SetStart({start});
        word::RangePtr result = place->Range();
        place->SetStart({0});
        place->SetEnd({0});
        return result;
    }
    word::BookmarkPtr bookmark(const string& name) { return document->Bookmarks()->Item(name); }
    string partOf(const string& path, const string& part) {
        return opc::Package::read(files.files[path], path).readPart(part);
    }
    string saved(const string& part = kMainPart) {
        document->SaveAs("/saved.docx", word::WdSaveFormat::wdFormatXMLDocument);
        return partOf("/saved.docx", part);
    }
    static string names(word::Bookmarks& bookmarks) {
        string all;
        for (int number = 1; number <= bookmarks.Count(); ++number)
            all += bookmarks.Item(number)->Name() + " ";
        return all;
    }

    MemoryFileStore files;
    word::ApplicationPtr application = embedded::makeWordApplication(files);
    word::DocumentPtr document;
    word::SelectionPtr selection;
};

const string kBody =
    "<w:p><w:bookmarkStart w:id=\"1\" w:name=\"Place\"/><w:bookmarkEnd w:id=\"1\"/>"
    "<w:r><w:t>0123456789</w:t></w:r></w:p>";

TEST_F(EmbeddedDocumentTest, rangesLiveOnThroughEdits) {
    struct Case {
        int start, end;
        string text;
        int liveStart, liveEnd;
    };
    // The expected bounds are those of the range from 4 to 6 after an edit.
    for (const Case& c : std::vector<Case>{{2, 2, "xy", 6, 8},
                                           {4, 4, "xy", 4, 8},
                                           {5, 5, "xy", 4, 8},
                                           {6, 6, "xy", 4, 6},
                                           {2, 4, "", 2, 4},
                                           {3, 5, "", 3, 4},
                                           {5, 8, "x", 4, 5},
                                           {2, 9, "", 2, 2},
                                           {7, 9, "", 4, 6},
                                           {2, 2, "\r\n", 5, 7},
                                           {2, 2, "\U0001F600", 6, 8}}) {
        open(kBody);
        const word::RangePtr live = range(4, 6);
        live->Select();
        range(c.start, c.end)->SetText(c.text);
        EXPECT_EQ(live->Start().value, c.liveStart) << c.start << "-" << c.end << c.text;
        EXPECT_EQ(live->End().value, c.liveEnd) << c.start << "-" << c.end << c.text;
        EXPECT_EQ(selection->Range()->Start(), live->Start());
        EXPECT_EQ(selection->Range()->End(), live->End());
    }
}

TEST_F(EmbeddedDocumentTest, textFallsIntoTheBookmarkThatStartsAtIt) {
    open(kBody);
    const word::RangePtr all = range(2, 4);
    document->Bookmarks()->Add("A", *all);
    document->Bookmarks()->Add("B", *range(4, 6));
    range(4, 4)->SetText("x");
    EXPECT_EQ(bookmark("A")->Range()->Text(), "23");
    EXPECT_EQ(bookmark("B")->Range()->Text(), "x45");
    range(4, 6)->SetText("");
    EXPECT_EQ(bookmark("B")->Range()->Text(), "5");
    const word::BookmarkPtr first = bookmark("A");
    all->SetText("new");
    EXPECT_FALSE(document->Bookmarks()->Exists("A"));
    EXPECT_EQ(all->Text(), "new");
    EXPECT_EQ(bookmark("B")->Range()->Text(), "5");
    EXPECT_THROW(first->Name(), AutomationError);
}

TEST_F(EmbeddedDocumentTest, typingReplacesTheSelection) {
    open(kBody);
    range(2, 4)->Select();
    selection->TypeText("a");
    selection->TypeParagraph();
    selection->TypeText("b\t");
    selection->SetText("c");
    EXPECT_EQ(selection->Range()->Text(), "c");
    selection->Collapse(word::WdCollapseDirection::wdCollapseStart);
    EXPECT_EQ(selection->Range()->Previous(word::WdUnits::wdCharacter, 1)->Text(), "\t");
    EXPECT_EQ(range(0, 14)->Text(), "01a\rb\tc456789\r");
}

TEST_F(EmbeddedDocumentTest, bookmarksAreCountedByNameAndByPlace) {
    open(kBody);
    document->Bookmarks()->Add("b", *range(5, 6));
    document->Bookmarks()->Add("A", *range(6, 8));
    document->Bookmarks()->Add("_GoBack", *range(5, 5));
    document->Bookmarks()->Add("Z", *range(1, 9));
    EXPECT_EQ(names(*document->Bookmarks()), "A b Head High Place Z ");
    EXPECT_EQ(document->Bookmarks()->Item("_goback")->Start().value, 5);
    const word::RangePtr some = range(5, 7);
    EXPECT_EQ(names(*some->Bookmarks()), "Z b A ");
    EXPECT_TRUE(some->Bookmarks()->Exists("_GOBACK"));
    EXPECT_FALSE(some->Bookmarks()->Exists("Place"));
    EXPECT_EQ(names(*range(6, 6)->Bookmarks()), "Z b A ");
    EXPECT_THROW(document->Bookmarks()->Item(7), AutomationError);
}

TEST_F(EmbeddedDocumentTest, addMovesABookmarkFromAnywhere) {
    open(kBody + "<w:p>" + kTextBox + "</w:p>");
    document->Bookmarks()->Add("boxed", *range(1, 2));
    document->Bookmarks()->Add("HEAD", *range(2, 3));
    const string body = saved();
    EXPECT_EQ(body.find("Boxed"), string::npos) << "neither in the text box nor in its copy";
    EXPECT_EQ(body.find("w:id=\"5\""), string::npos);
    EXPECT_NE(body.find("w:id=\"41\" w:name=\"boxed\""), string::npos) << body;
    EXPECT_EQ(saved("/word/header1.xml").find("bookmark"), string::npos);
    EXPECT_EQ(bookmark("head")->Range()->storyName(), "body");
    // The new bookmark is in the story of the other one.
    document->Bookmarks()->Add("x", *bookmark("High")->Range());
    EXPECT_EQ(bookmark("x")->Range()->storyName(), "comment 1");
}

TEST_F(EmbeddedDocumentTest, whatIsRefusedLeavesTheDocumentAsItWas) {
    open(kBody + "<w:tbl><w:tr><w:tc><w:p/></w:tc></w:tr></w:tbl><w:p/>");
    document->Bookmarks()->Add("A", *range(3, 4));
    const word::RangePtr first = range(0, 1);
    const word::RangePtr rowMark = range(13, 13)->Previous(word::WdUnits::wdCharacter, 1);
    const string before = saved();
    EXPECT_THROW(document->Bookmarks()->Add("1A", *first), AutomationError);
    EXPECT_THROW(bookmark("A")->SetStart({12}), AutomationError);
    EXPECT_THROW(document->Bookmarks()->Add("A", *rowMark), AutomationError);
    EXPECT_EQ(saved(), before);
}

TEST_F(EmbeddedDocumentTest, undoReachesBackBeforeASave) {
    open(kBody);
    application->UndoRecord()->StartCustomRecord("drop");
    range(2, 4)->SetText("x");
    document->Save();
    application->UndoRecord()->EndCustomRecord();
    EXPECT_EQ(shownBody(files.files["/a.docx"]), "[Place:]01x456789\n");
    ASSERT_TRUE(document->Undo(1));
    EXPECT_FALSE(document->Saved());
    document->Save();
    EXPECT_EQ(shownBody(files.files["/a.docx"]), "[Place:]0123456789\n");
    EXPECT_FALSE(document->Undo(1));
}

TEST_F(EmbeddedDocumentTest, aDocumentThatGaveUpUndoKeepsWhatARecordedStepChanged) {
    open(kBody);
    document->giveUpUndo();
    application->UndoRecord()->StartCustomRecord("drop");
    range(2, 4)->SetText("x");
    EXPECT_FALSE(application->UndoRecord()->EndCustomRecord());
    EXPECT_FALSE(document->Undo(1));
    EXPECT_FALSE(document->Saved());
    document->Save();
    EXPECT_EQ(shownBody(files.files["/a.docx"]), "[Place:]01x456789\n");
}

}  // namespace
}  // namespace mergeloom
