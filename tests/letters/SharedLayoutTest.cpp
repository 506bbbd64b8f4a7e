#include "letters/ListTest.h"
#include "office/model/letters/RecordMark.h"

namespace mergeloom {
namespace {

/// Templates whose records can share one document, and templates whose records cannot.
class SharedLayout : public ListTest {
  protected:
    SharedLayout() {
        settings.use = letters::LetterUse::OneForAll;
        settings.marks = letters::RecordMarks::Bookmarks;
        takes("A", {{"A"}});
    }

    std::string bodyOf(letters::Letters& letters, const std::vector<std::string>& values) {
        for (const std::string& value : values)
            letters.append({{shownControl("A", value)}});
        files.save("/all.docx", [&](ByteSink& sink) { letters.finish(sink); });
        return bodyXml(files.files["/all.docx"]);
    }
    static std::string mark(std::size_t record) { return '"' + letters::recordMarkName(record) + '"'; }
};

TEST_F(SharedLayout, OnlyIndependentContentIsShared) {
    const auto field = [](const std::string& code) {
        const auto character = [](const std::string& type) {
            return inRun("<w:fldChar w:fldCharType=\"" + type + "\"/>");
        };
        // Word may divide codes at any character.
        return character("begin") + inRun("<w:instrText>" + code.substr(0, 3) + "</w:instrText>") +
               inRun("<w:instrText>" + code.substr(3) + "</w:instrText>") + character("separate") + run("1") +
               character("end");
    };
    struct Case {
        std::string body;
        bool isShared;
    };
    const std::string text = paragraph(place("A"));
    const std::string control = "<w:sdtContent>" + paragraph(run("t")) + "</w:sdtContent></w:sdt>";
    const std::vector<Case> cases{
        {text, true},
        {paragraph(field("PAGE \\* ROMAN") + field("DATE") + place("A")), true},
        {paragraph(field("NUMPAGES") + place("A")), false},
        {paragraph(field("SEQ t") + place("A")), false},
        {paragraph("<w:fldSimple w:instr=\"REF x\"/>" + place("A")), false},
        {paragraph("<w:hyperlink r:id=\"x\">" + run("t") + "</w:hyperlink>" + place("A")), true},
        {paragraph("<w:hyperlink w:anchor=\"x\">" + run("t") + "</w:hyperlink>" + place("A")), false},
        {paragraph(field("HYPERLINK x") + place("A")), true},
        {paragraph(field("HYPERLINK \\l x") + place("A")), false},
        {paragraph("<w:pPr><w:keepNext/></w:pPr>" + place("A")), false},
        {paragraph(inRun("<w:footnoteReference w:id=\"2\"/>") + place("A")), false},
        {"<w:sdt><w:sdtPr><w:docPartObj/></w:sdtPr>" + control + text, true},
        {"<w:sdt><w:sdtPr><w:text/></w:sdtPr>" + control + text, false},
        {"<w:p><w:pPr><w:sectPr/></w:pPr></w:p>" + text + "<w:sectPr/>", false},
        {text + "<w:sectPr><w:cols w:num=\"1\"/></w:sectPr>", true},
        {text + "<w:sectPr><w:cols w:num=\"2\"/></w:sectPr>", false},
        {"<w:tbl>" + row(cell(run("t"))) + "</w:tbl>" + text, false},
        // An empty value may remove the last paragraph.
        {"<w:p>" + place("A") + "<w:bookmarkStart w:id=\"90\" w:name=\"OptionalCarriageReturn1\"/></w:p>" +
             "<w:p><w:bookmarkEnd w:id=\"90\"/>" + run("t") + "</w:p>",
         false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(compiled(wordFile(c.body))->canShareLayout(), c.isShared) << c.body;
}

/// Numbered lists continue through a document, also those of a style that is based on a numbered one.
TEST_F(SharedLayout, ListsThatCountAreNotShared) {
    const std::string styles = numberedStyle("Numbers", "1") + numberedStyle("Bullets", "2") +
                               basedStyle("Item", "Numbers", "") + basedStyle("Dot", "Bullets", "") +
                               basedStyle("Off", "Numbers", "0") + basedStyle("Circle", "Circle", "");
    const std::string lists =
        definition("7", "decimal", "1") + definition("8", "bullet", "1") + list("1", "7") + list("2", "8");
    const auto isShared = [&](const std::string& properties) {
        const std::string body = paragraph("<w:pPr>" + properties + "</w:pPr>" + place("A"));
        return compiled(withStyles(withLists(body, lists), styles))->canShareLayout();
    };
    const std::string noList = "<w:numPr><w:numId w:val=\"0\"/></w:numPr>";
    for (const char* style : {"Bullets", "Dot", "Off", "Circle", "Unknown"})
        EXPECT_TRUE(isShared(ofStyle(style))) << style;
    EXPECT_TRUE(isShared(ofStyle("Numbers") + noList));
    EXPECT_TRUE(isShared(inList("2")));
    for (const char* style : {"Numbers", "Item"})
        EXPECT_FALSE(isShared(ofStyle(style))) << style;
    EXPECT_FALSE(isShared(inList("1")));
}

TEST_F(SharedLayout, RecordsAreMarkedInsteadOfOtherBookmarks) {
    const auto letters = compiled(
        wordFile(paragraph("<w:pPr><w:jc w:val=\"left\"/></w:pPr>" + place("A") + marked("Own", run("t")))));
    const std::string xml = bodyOf(*letters, {"x", "y"});
    const std::size_t second = xml.find(mark(1));
    EXPECT_LT(xml.find(mark(0)), xml.find("<w:t>x"));
    EXPECT_LT(xml.find("<w:t>x"), second);
    EXPECT_LT(second, xml.find("<w:t>y"));
    EXPECT_EQ(xml.find(mark(2)), std::string::npos);
    EXPECT_EQ(xml.find("\"Own\""), std::string::npos);
}

/// One template writes several documents.
TEST_F(SharedLayout, TheNextDocumentHasOnlyItsOwnRecords) {
    const std::string file = wordFile(paragraph(place("A")));
    const auto letters = compiled(file);
    bodyOf(*letters, {"x", "y"});
    const std::string next = bodyOf(*letters, {"z"});
    EXPECT_EQ(next, bodyOf(*compiled(file), {"z"}));
}

}  // namespace
}  // namespace mergeloom
