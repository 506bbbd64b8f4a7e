#include "letters/LetterTest.h"

#include <gmock/gmock.h>

namespace mergeloom {
namespace {

class LetterPlaces : public LetterTest {
  protected:
    LetterPlaces() {
        for (const char* name : {"A", "B", "C"})
            takes(name, {{name}});
    }
};

TEST_F(LetterPlaces, TakeTheValuesOfTheirSources) {
    takes("A_bv", {{"A"}, letters::ValueKind::Bound});
    takes("A_ref1", {{"A"}});
    takes("SubX", {{"Sub", "X"}});
    takes("_x", {{"A"}});
    const std::string body = paragraph(place("A") + run(" ") + place("A_bv") + run(" ") + place("a_REF1") +
                                       run(" ") + place("SubX") + run(" ") + place("Other") + place("_x"));
    Record record{{{.name = "A", .displayValue = "Tom", .boundValue = "3", .records = {}},
                   subform("Sub", {{{shownControl("X", "first")}}, {{shownControl("X", "second")}}})}};
    EXPECT_EQ(filled(body, record), "[A:Tom] [A_bv:3] [a_REF1:Tom] [SubX:first] [Other:Other][_x:Tom]\n");
}

TEST_F(LetterPlaces, KeepTheirFormattingAndTheirSurroundings) {
    const std::string body =
        paragraph("<w:hyperlink w:anchor=\"x\">" + place("A", "<w:b/>") + "</w:hyperlink>" +
                  "<w:sdt><w:sdtPr><w:alias w:val=\"c\"/></w:sdtPr><w:sdtContent>" + place("B", "<w:i/>") +
                  "</w:sdtContent></w:sdt>");
    const std::string xml = bodyXml(
        letterOf(*compiled(wordFile(body)), {Record{{shownControl("A", "1"), shownControl("B", "2")}}}));
    EXPECT_NE(
        xml.find("<w:hyperlink w:anchor=\"x\"><w:r><w:rPr><w:b/></w:rPr><w:t>1</w:t></w:r></w:hyperlink>"),
        std::string::npos)
        << xml;
    EXPECT_NE(xml.find("<w:sdtContent><w:r><w:rPr><w:i/></w:rPr><w:t>2</w:t></w:r></w:sdtContent>"),
              std::string::npos)
        << xml;
}

/// A file contains a text box twice, once for Word and once for older programs.
TEST_F(LetterPlaces, AreFilledInBothFormsOfATextBox) {
    const std::string box = "<w:txbxContent>" + paragraph(place("A")) + "</w:txbxContent>";
    const std::string body = paragraph(
        inRun("<mc:AlternateContent xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\">"
              "<mc:Choice Requires=\"wps\"><w:drawing><wps:txbx xmlns:wps=\"w\">" +
              box + "</wps:txbx></w:drawing></mc:Choice><mc:Fallback><w:pict><v:textbox xmlns:v=\"v\">" +
              box + "</v:textbox></w:pict></mc:Fallback></mc:AlternateContent>"));
    const std::string xml = bodyXml(letterOf(*compiled(wordFile(body)), {Record{{shownControl("A", "1")}}}));
    const std::size_t first = xml.find("<w:t>1</w:t>");
    EXPECT_LT(first, xml.find("</mc:Choice>")) << xml;
    EXPECT_NE(xml.find("<w:t>1</w:t>", first + 1), std::string::npos) << xml;
    EXPECT_EQ(xml.find("<w:t>A</w:t>"), std::string::npos) << xml;
}

TEST_F(LetterPlaces, TextStaysText) {
    struct Case {
        std::string value;
        std::string expected;
    };
    const std::vector<Case> cases{
        {"</w:t> & \"x\"", "<w:t>&lt;/w:t&gt; &amp; &quot;x&quot;</w:t>"},
        {"a\x01\x1f\x7f z\xef\xbf\xbe", "<w:t>a z</w:t>"},
        {"one\r\ntwo\nthree", "<w:t>one</w:t><w:br/><w:t>two</w:t><w:br/><w:t>three</w:t>"},
        {" a\tb ", "<w:t xml:space=\"preserve\"> a</w:t><w:tab/><w:t xml:space=\"preserve\">b </w:t>"},
        {"\uFDD0V0\uFDD1", "<w:t>V0</w:t>"},
        {"\u05D0\u05D1 \uFEFF", "<w:t>\u05D0\u05D1 \uFEFF</w:t>"},
        {"", "<w:t/>"},
    };
    const auto letters = compiled(wordFile(paragraph(place("A"))));
    for (const Case& c : cases) {
        const std::string xml = bodyXml(letterOf(*letters, {Record{{shownControl("A", c.value)}}}));
        EXPECT_NE(xml.find("<w:r>" + c.expected + "</w:r>"), std::string::npos) << c.value << "\n" << xml;
    }
}

TEST_F(LetterPlaces, ValuesInTheCodeOfAFieldAreQuoted) {
    const auto code = [](const std::string& text) {
        return inRun("<w:instrText>" + text + "</w:instrText>");
    };
    const std::string body =
        paragraph(inRun("<w:fldChar w:fldCharType=\"begin\"/>") + code("HYPERLINK &quot;") +
                  marked("A", code("A")) + code("&quot;") + inRun("<w:fldChar w:fldCharType=\"separate\"/>") +
                  run("x") + inRun("<w:fldChar w:fldCharType=\"end\"/>"));
    const Record record{{shownControl("A", "C:\\x\" \\o \"\ny")}};
    EXPECT_THAT(filled(body, record), testing::HasSubstr("[A:C:\\\\x\\&quot; \\\\o \\&quot; y]"));
}

TEST_F(LetterPlaces, OptionalTextGoesWithAnEmptyValueBesideIt) {
    const std::string space = marked("OptionalSpace0", run(" "));
    const std::string body =
        paragraph(place("A") + space + run("\u200D") + place("B") + run(" ") + place("C"));
    struct Case {
        std::string b;
        std::string expected;
    };
    const std::vector<Case> cases{{"", "[A:Ann][OptionalSpace0:]^[B:] [C:Lee]\n"},
                                  {"Mary", "[A:Ann][OptionalSpace0: ]^[B:Mary] [C:Lee]\n"}};
    for (const Case& c : cases) {
        const Record record{{shownControl("A", "Ann"), shownControl("B", c.b), shownControl("C", "Lee")}};
        EXPECT_EQ(filled(body, record), c.expected);
        // A letter can be filled again, with a value that was empty before.
        const Record full{{shownControl("A", "Ann"), shownControl("B", "Sue"), shownControl("C", "Lee")}};
        const std::string again = letterOf(*compiled(files.files["/letter.docx"]), {full});
        EXPECT_EQ(shownBody(again), "[A:Ann][OptionalSpace0: ]^[B:Sue] [C:Lee]\n");
    }
}

TEST_F(LetterPlaces, AnOptionalLineGoesWithItsValue) {
    const std::string body = "<w:p>" + place("A") + "</w:p><w:p>" + place("B") +
                             "<w:bookmarkStart w:id=\"9\" w:name=\"OptionalCarriageReturn0\"/></w:p><w:p>"
                             "<w:bookmarkEnd w:id=\"9\"/>" +
                             place("C") + "</w:p>";
    const Record without{{shownControl("A", "a"), shownControl("C", "c")}};
    EXPECT_EQ(filled(body, without), "[A:a]\n[B:][OptionalCarriageReturn0:][C:c]\n");
    const std::string letter = files.files["/letter.docx"];
    const Record whole{{shownControl("A", "a"), shownControl("B", "b"), shownControl("C", "c")}};
    const std::string expected = "[A:a]\n[B:b][OptionalCarriageReturn0:\n][C:c]\n";
    EXPECT_EQ(filled(body, whole), expected);
    EXPECT_EQ(shownBody(letterOf(*compiled(letter), {whole})), expected);
}

TEST_F(LetterPlaces, AnOptionalLineReturnsWithItsParagraphs) {
    const std::string body =
        "<w:p>" + place("A") +
        "<w:bookmarkStart w:id=\"9\" w:name=\"OptionalCarriageReturn0\"/></w:p><w:p><w:pPr>"
        "<w:jc w:val=\"right\"/></w:pPr><w:bookmarkEnd w:id=\"9\"/>" +
        place("B") + "</w:p>";
    const std::string file = wordFile(body);
    const Record without{{shownControl("B", "b")}};
    const Record whole{{shownControl("A", "a"), shownControl("B", "b")}};
    const std::string direct = letterOf(*compiled(file), {whole});
    std::string letter = letterOf(*compiled(file), {without});
    EXPECT_EQ(bodyXml(letterOf(*compiled(letter), {without})), bodyXml(letter));
    EXPECT_EQ(bodyXml(letterOf(*compiled(letter), {whole})), bodyXml(direct));
}

TEST_F(LetterPlaces, WhatCannotBeFilledIsTold) {
    const std::string table = "<w:tbl>" + row(cell("<w:bookmarkStart w:id=\"7\" w:name=\"A\"/>" + run("x")) +
                                              cell(run("y") + "<w:bookmarkEnd w:id=\"7\"/>" + run("z")));
    const auto letters = compiled(wordFile(table + "</w:tbl>" + paragraph(place("B"))));
    ASSERT_EQ(letters->refusals().size(), 1U);
    EXPECT_TRUE(letters->refusals().front().starts_with("The place \"A\" cannot be filled: "));
    EXPECT_EQ(letters->filledPlaces().size(), 1U);
}

}  // namespace
}  // namespace mergeloom
