#include "letters/LetterTest.h"

namespace mergeloom {
namespace {

class LetterRichText : public LetterTest {
  protected:
    LetterRichText() { takes("A", {{"A"}}); }

    static Record rich(const std::string& html, const std::string& plain = "plain") {
        return {{{.name = "A", .richText = html, .plainText = plain, .records = {}}}};
    }
    std::string shownOf(const std::string& html) {
        return filled(paragraph(run("Say: ") + place("A") + run(".")), rich(html));
    }
};

TEST_F(LetterRichText, BlocksBecomeParagraphs) {
    struct Case {
        std::string html;
        std::string expected;
    };
    const std::vector<Case> cases{
        {"<div>one</div>", "Say: [A:one].\n"},
        {"<div>one</div><div>two</div>", "Say: [A:one\ntwo].\n"},
        {"<DIV>one</DIV>\r\n<P>two  words</P>", "Say: [A:one\ntwo words].\n"},
        {"<div>a</div><div>&nbsp;</div><div>b</div>", "Say: [A:a\n\u00A0\nb].\n"},
        {"plain &amp; <unknown>x</unknown> &#8364;", "Say: [A:plain &amp; x \u20AC].\n"},
        {"<ul><li>x</li><li>y</li></ul><ol><li>z</li></ol>", "Say: [A:\u2022 x\n\u2022 y\n1. z].\n"},
        {"<div>x<br></br>y</div>", "Say: [A:xy].\n"},
        {"<div title=\"a>b\">q</div><p class='>'>r</p><p x='>s</p>", "Say: [A:q\nr\ns].\n"},
        {"<b>open", "Say: [A:plain].\n"},
        {"<i><b>x</i></b>", "Say: [A:plain].\n"},
        {"1 < 2", "Say: [A:plain].\n"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(shownOf(c.html), c.expected) << c.html;
    EXPECT_EQ(filled(paragraph(place("A")), rich("<b>1 &lt; 2</i> and 3 <", "")), "[A:1 &lt; 2 and 3 ]\n");
}

TEST_F(LetterRichText, FormattingJoinsThatOfThePlace) {
    const auto letters = compiled(wordFile(paragraph(place("A", "<w:rStyle w:val=\"S\"/><w:i/>"))));
    const std::string xml = bodyXml(letterOf(
        *letters, {rich("x<b>y</b><font color=\"#ff0000\" face=\"A&amp;B\" size=2><u>z</u></font><br>w")}));
    const std::string start = "<w:r><w:rPr><w:rStyle w:val=\"S\"/>";
    EXPECT_NE(xml.find(start + "<w:i/></w:rPr><w:t>x</w:t></w:r>" + start +
                       "<w:b/><w:i/></w:rPr><w:t>y</w:t></w:r>" + start +
                       "<w:rFonts w:ascii=\"A&amp;B\" w:hAnsi=\"A&amp;B\" w:cs=\"A&amp;B\"/><w:i/>"
                       "<w:color w:val=\"ff0000\"/><w:sz w:val=\"20\"/><w:szCs w:val=\"20\"/>"
                       "<w:u w:val=\"single\"/></w:rPr><w:t>z</w:t></w:r>" +
                       start + "<w:i/></w:rPr><w:br/><w:t>w</w:t></w:r>"),
              std::string::npos)
        << xml;
}

/// Only one of the paragraphs keeps a page break before it or the end of a section, also when the letter is
/// filled again.
TEST_F(LetterRichText, ParagraphsThatAreAddedDoNotRepeatSectionsAndPageBreaks) {
    const std::string list = "<w:numPr><w:numId w:val=\"1\"/></w:numPr>";
    const std::string section = "<w:sectPr><w:pgSz w:w=\"5\"/></w:sectPr>";
    const std::string file = wordFile(
        paragraph("<w:pPr><w:pageBreakBefore/>" + list + section + "</w:pPr>" + place("A") + run(".")) +
        paragraph(place("B")));
    takes("B", {{"B"}});
    const std::string letter = letterOf(*compiled(file), {rich("<p>1</p><p>2</p><p>3</p>")});
    std::string shown = bodyXml(letter);
    for (const char* ignored : {"<w:r>", "</w:r>", "<w:t/>", "<w:t>", "</w:t>"})
        shown = replaceAll(shown, ignored, "");
    EXPECT_NE(shown.find("<w:p><w:pPr><w:pageBreakBefore/>" + list + "</w:pPr>"), std::string::npos) << shown;
    EXPECT_NE(shown.find("1</w:p><w:p><w:pPr>" + list + "</w:pPr>2</w:p><w:p><w:pPr>" + list + section +
                         "</w:pPr>3"),
              std::string::npos)
        << shown;
    EXPECT_EQ(bodyXml(letterOf(*compiled(letter), {rich("x")})),
              bodyXml(letterOf(*compiled(file), {rich("x")})));
}

TEST_F(LetterRichText, TwoPlacesOfOneParagraphAreJoinedAgain) {
    takes("B", {{"B"}});
    const std::string file = wordFile(paragraph(place("A") + run("-") + place("B")) + paragraph(""));
    const auto both = [](const std::string& html) {
        return Record{
            {{.name = "A", .richText = html, .records = {}}, {.name = "B", .richText = html, .records = {}}}};
    };
    const std::string letter = letterOf(*compiled(file), {both("<p>1</p><p>2</p>")});
    EXPECT_EQ(shownBody(letter), "[A:1\n2]-[B:1\n2]\n\n");
    EXPECT_EQ(bodyXml(letterOf(*compiled(letter), {both("x")})),
              bodyXml(letterOf(*compiled(file), {both("x")})));
}

TEST_F(LetterRichText, BrokenTextIsToldAndFilledLettersAreFilledAgain) {
    const std::string file = wordFile(paragraph(place("A", "<w:i/>")) + paragraph(""));
    const auto letters = compiled(file);
    const std::string first = letterOf(*letters, {rich("<div><b>one</b></div><div>two</div>")});
    EXPECT_TRUE(letters->remarks().empty());
    EXPECT_EQ(bodyXml(letterOf(*compiled(first), {rich("<u>x</u>")})),
              bodyXml(letterOf(*compiled(file), {rich("<u>x</u>")})));
    letterOf(*letters, {rich("<div>")});
    EXPECT_EQ(letters->remarks(),
              std::vector<std::string>{"The rich text of A is broken; its plain text was taken."});
}

}  // namespace
}  // namespace mergeloom
