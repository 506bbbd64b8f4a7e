#include "letters/LetterTest.h"

namespace mergeloom {
namespace {

/// Letters with fields that repeat a place.
class LetterReferences : public LetterTest {
  protected:
    LetterReferences() { takes("A", {{"A"}}); }

    static std::string character(const std::string& type) {
        return inRun("<w:fldChar w:fldCharType=\"" + type + "\"/>");
    }
    static std::string field(const std::string& code, const std::string& result) {
        return character("begin") + inRun("<w:instrText>" + code + "</w:instrText>") + character("separate") +
               result + character("end");
    }
    static std::string simple(const std::string& code, const std::string& result) {
        return "<w:fldSimple w:instr=\"" + code + "\">" + result + "</w:fldSimple>";
    }
    static std::string value(const std::string& text, const std::string& properties = "") {
        return inRun("<w:t>" + text + "</w:t>", properties);
    }
    std::string letter(const std::string& file, const std::string& text) {
        return letterOf(*compiled(file), {Record{{shownControl("A", text)}}});
    }
    /// Returns the content of the second paragraph, which follows one with the place.
    std::string filledAfterPlace(const std::string& content) {
        const std::string xml = bodyXml(letter(wordFile(paragraph(place("A")) + paragraph(content)), "x"));
        const std::size_t start = xml.find("<w:p>", xml.find("</w:p>")) + 5;
        return xml.substr(start, xml.find("</w:p>", start) - start);
    }
};

TEST_F(LetterReferences, ShowTheValue) {
    struct Case {
        std::string content;
        std::string expected;
    };
    const std::vector<Case> cases{
        {field(" REF A \\h ", run("old", "<w:b/>") + run("er")), field(" REF A \\h ", value("x", "<w:b/>"))},
        {field("ref a \\* MERGEFORMAT", ""), field("ref a \\* MERGEFORMAT", inRun("<w:t>x</w:t>"))},
        {simple("REF A", run("old")), simple("REF A", value("x"))},
        {field("REF Other", run("old")), field("REF Other", run("old"))},
    };
    for (const Case& c : cases)
        EXPECT_EQ(filledAfterPlace(c.content), c.expected) << c.content;
}

TEST_F(LetterReferences, AFilledLetterShowsTheNextValue) {
    const std::string file = wordFile(paragraph(place("A")) + paragraph(field("REF A", run("old"))));
    EXPECT_EQ(bodyXml(letter(letter(file, ""), "y")), bodyXml(letter(file, "y")));
}

TEST_F(LetterReferences, PagesAreUpdatedWhenTheLetterIsOpened) {
    EXPECT_EQ(filledAfterPlace(simple("PAGEREF A \\h", run("1"))),
              "<w:fldSimple w:instr=\"PAGEREF A \\h\" w:dirty=\"true\">" + run("1") + "</w:fldSimple>");
}

TEST_F(LetterReferences, WhatShowsNoTextOfThePlaceIsTold) {
    const std::string advice = " is not filled: put a further place there, or let Word update it.";
    const std::vector<std::string> contents{
        field("REF A \\n", run("1")),
        field("REF A \\* Upper", run("A")),
        field("REF A", field("DATE", run("1"))),
        character("begin") + inRun("<w:instrText>REF A</w:instrText>") + character("end"),
    };
    for (const std::string& content : contents) {
        const std::string file = wordFile(paragraph(place("A")) + paragraph(content));
        EXPECT_EQ(compiled(file)->refusals(), std::vector<std::string>{"The field REF A" + advice})
            << content;
        EXPECT_EQ(filledAfterPlace(content), content);
    }
}

TEST_F(LetterReferences, BecomeTextInOneDocument) {
    settings.use = letters::LetterUse::OneForAll;
    const auto letters =
        compiled(wordFile(paragraph(place("A")) + paragraph(field("REF A", run("old"))) +
                          paragraph(simple("REF A", run("old"))) + paragraph(simple("PAGEREF A", run("7")))));
    EXPECT_EQ(letters->refusals(),
              std::vector<std::string>{"The field PAGEREF A keeps the page of the template."});
    for (const char* text : {"x", "y"})
        letters->append({{shownControl("A", text)}});
    files.save("/all.docx", [&](ByteSink& sink) { letters->finish(sink); });
    EXPECT_EQ(shownBody(files.files["/all.docx"]), "x\nx\nx\n7\ny\ny\ny\n7\n");
    EXPECT_EQ(bodyXml(files.files["/all.docx"]).find("REF"), std::string::npos);
}

/// A header with a field but without a place changes with the records, too.
TEST_F(LetterReferences, HeadersFollowTheRecords) {
    settings.use = letters::LetterUse::OneForAll;
    const std::string body =
        paragraph(place("A")) + "<w:sectPr><w:headerReference w:type=\"default\" r:id=\"rIdH\"/></w:sectPr>";
    opc::Package package = opc::Package::read(wordFile(body), "header.docx");
    package.addPart("/word/header1.xml",
                    "application/vnd.openxmlformats-officedocument.wordprocessingml.header+xml",
                    "<w:hdr xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">" +
                        paragraph(simple("REF A", run("old"))) + "</w:hdr>");
    const std::string id = package.relationshipsOf(kMainPart).addPart(
        opc::officeRelationshipType("header", opc::Conformance::Transitional), "/word/header1.xml");
    package.writePart(kMainPart, replaceAll(package.readPart(kMainPart), "rIdH", id));
    const auto letters = compiled(packageBytes(package));
    for (const char* text : {"x", "y"})
        letters->append({{shownControl("A", text)}});
    files.save("/all.docx", [&](ByteSink& sink) { letters->finish(sink); });
    const opc::Package all = opc::Package::read(files.files["/all.docx"], "all.docx");
    std::string headers;
    for (const std::string& name : all.partNames()) {
        if (name.find("header") != std::string::npos) headers += all.readPart(name);
    }
    EXPECT_NE(headers.find("<w:t>x</w:t>"), std::string::npos) << headers;
    EXPECT_NE(headers.find("<w:t>y</w:t>"), std::string::npos) << headers;
}

}  // namespace
}  // namespace mergeloom
