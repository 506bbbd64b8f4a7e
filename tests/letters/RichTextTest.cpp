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
