#include "letters/LetterTest.h"

namespace mergeloom {
namespace {

class OneDocument : public LetterTest {
  protected:
    OneDocument() {
        settings.use = letters::LetterUse::OneForAll;
        takes("A", {{"A"}});
    }

    std::string allOf(const std::string& file, const std::vector<std::string>& values) {
        const auto letters = compiled(file);
        for (const std::string& value : values)
            letters->append({{shownControl("A", value)}});
        files.save("/all.docx", [&](ByteSink& sink) { letters->finish(sink); });
        return files.files["/all.docx"];
    }
    static std::string betweenTags(const std::string& xml) {
        const std::size_t start = xml.find("<w:body>") + 8;
        return xml.substr(start, xml.find("</w:body>") - start);
    }
};

TEST_F(OneDocument, EachRecordStartsASectionOfItsOwn) {
    struct Case {
        std::string body;
        std::string expected;
    };
    const std::string type = "<w:type w:val=\"nextPage\"/>";
    const std::string section =
        "<w:sectPr>" + type + "<w:pgSz w:w=\"1\"/><w:pgNumType w:start=\"1\"/></w:sectPr>";
    const std::string empty = "<w:sectPr>" + type + "<w:pgNumType w:start=\"1\"/></w:sectPr>";
    const auto value = [](const std::string& text) { return "<w:r><w:t>" + text + "</w:t></w:r>"; };
    const std::vector<Case> cases{
        {paragraph(place("A")) + "<w:sectPr><w:pgSz w:w=\"1\"/></w:sectPr>",
         "<w:p><w:pPr>" + section + "</w:pPr>" + value("x") + "</w:p><w:p><w:pPr></w:pPr>" + value("y") +
             "</w:p>" + section},
        {paragraph("<w:pPr><w:jc w:val=\"left\"/><w:rPr><w:b/></w:rPr></w:pPr>" + place("A")),
         "<w:p><w:pPr><w:jc w:val=\"left\"/><w:rPr><w:b/></w:rPr>" + empty + "</w:pPr>" + value("x") +
             "</w:p><w:p><w:pPr><w:jc w:val=\"left\"/><w:rPr><w:b/></w:rPr></w:pPr>" + value("y") + "</w:p>" +
             empty},
    };
    for (const Case& c : cases)
        EXPECT_EQ(betweenTags(bodyXml(allOf(wordFile(c.body), {"x", "y"}))), c.expected);
}

TEST_F(OneDocument, SectionsStayWithOptionalLinesAndHeaders) {
    const std::string optional = "<w:p>" + place("A") +
                                 "<w:bookmarkStart w:id=\"90\" w:name=\"OptionalCarriageReturn1\"/></w:p>"
                                 "<w:p><w:bookmarkEnd w:id=\"90\"/>" +
                                 place("B") + "</w:p>";
    const std::string xml = bodyXml(allOf(wordFile(optional), {"", "y", ""}));
    std::size_t sections = 0;
    for (std::size_t at = xml.find("<w:sectPr>"); at != std::string::npos;
         at = xml.find("<w:sectPr>", at + 1))
        ++sections;
    EXPECT_EQ(sections, 3U);

    const std::string header = "<w:sectPr><w:headerReference w:type=\"default\" r:id=\"h\"/></w:sectPr>";
    const std::string body = "<w:p><w:pPr><w:sectPr/></w:pPr></w:p>" + paragraph(place("A")) + header;
    EXPECT_THROW(allOf(wordFile(body), {"x", "y"}), AutomationError);
}

TEST_F(OneDocument, SectionsEndWithTheLastParagraphOfRichText) {
    const auto letters = compiled(wordFile(paragraph("<w:pPr><w:jc w:val=\"left\"/></w:pPr>" + place("A"))));
    for (const char* value : {"x", "y"})
        letters->append({{{.name = "A",
                           .richText = "<p>" + std::string(value) + "1</p><p>2</p><p>3</p>",
                           .records = {}}}});
    files.save("/all.docx", [&](ByteSink& sink) { letters->finish(sink); });
    std::string shown =
        replaceAll(betweenTags(bodyXml(files.files["/all.docx"])), "<w:pgNumType w:start=\"1\"/>", "");
    for (const char* ignored :
         {"<w:r>", "</w:r>", "<w:t/>", "<w:t>", "</w:t>", "<w:type w:val=\"nextPage\"/>"})
        shown = replaceAll(shown, ignored, "");
    const std::string start = "<w:p><w:pPr><w:jc w:val=\"left\"/>";
    const std::string section = "<w:sectPr></w:sectPr>";
    EXPECT_EQ(shown, start + "</w:pPr>x1</w:p>" + start + "</w:pPr>2</w:p>" + start + section +
                         "</w:pPr>3</w:p>" + start + "</w:pPr>y1</w:p>" + start + "</w:pPr>2</w:p>" + start +
                         "</w:pPr>3</w:p>" + section);
}

TEST_F(OneDocument, CommentsWithPlacesAreThoseOfTheirRecords) {
    const std::string body =
        paragraph("<w:commentRangeStart w:id=\"3\"/>" + run("t") + "<w:commentRangeEnd w:id=\"3\"/>" +
                  inRun("<w:commentReference w:id=\"3\"/>") + place("B"));
    opc::Package package = opc::Package::read(wordFile(body), "comments.docx");
    package.addPart("/word/comments.xml",
                    "application/vnd.openxmlformats-officedocument.wordprocessingml.comments+xml",
                    "<w:comments xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">"
                    "<w:comment w:id=\"3\" w:author=\"a\">" +
                        paragraph(place("A")) + "</w:comment></w:comments>");
    package.relationshipsOf(kMainPart).addPart(
        opc::officeRelationshipType("comments", opc::Conformance::Transitional), "/word/comments.xml");
    const std::string all = allOf(packageBytes(package), {"x", "y"});
    const std::string comments = opc::Package::read(all, "all.docx").readPart("/word/comments.xml");
    const std::string xml = bodyXml(all);
    for (const auto& [id, value] : {std::pair("3", "x"), {"1003", "y"}}) {
        const std::string attribute = std::string("w:id=\"") + id + "\"";
        for (const char* mark : {"<w:commentRangeStart ", "<w:commentRangeEnd ", "<w:commentReference "})
            EXPECT_NE(xml.find(mark + attribute + "/>"), std::string::npos) << mark << id;
        EXPECT_NE(comments.find("<w:comment " + attribute + " w:author=\"a\"><w:p><w:r><w:t>" + value),
                  std::string::npos)
            << comments;
    }
}

TEST_F(OneDocument, IdsAndNamesStayUnique) {
    takes("A_ref1", {{"A"}});
    const std::string drawing = inRun("<w:drawing><wp:inline><wp:docPr id=\"4\"/></wp:inline></w:drawing>");
    const std::string comment = "<w:commentRangeStart w:id=\"1\"/>" + run("t") +
                                "<w:commentRangeEnd w:id=\"1\"/>" + inRun("<w:commentReference w:id=\"1\"/>");
    const std::string note =
        inRun("<w:footnoteReference w:id=\"2\"/>") +
        inRun("<w:pict><v:shapetype id=\"y\"/><v:shape id=\"s\" o:spid=\"z\" type=\"#y\"/></w:pict>");
    const std::string body = "<w:p w14:paraId=\"0A\">" + place("A") + marked("Own", drawing) + comment +
                             note + "<w:sdt><w:sdtPr><w:id w:val=\"5\"/></w:sdtPr><w:sdtContent>" + run("c") +
                             "</w:sdtContent></w:sdt></w:p>";
    opc::Package package = opc::Package::read(wordFile(body), "notes.docx");
    const std::string space = " xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\"";
    package.addPart("/word/footnotes.xml",
                    "application/vnd.openxmlformats-officedocument.wordprocessingml.footnotes+xml",
                    "<w:footnotes" + space +
                        "><w:footnote w:type=\"separator\" w:id=\"0\"><w:p/></w:footnote>"
                        "<w:footnote w:id=\"2\">" +
                        paragraph(place("A_ref1")) + "</w:footnote></w:footnotes>");
    package.relationshipsOf(kMainPart).addPart(
        opc::officeRelationshipType("footnotes", opc::Conformance::Transitional), "/word/footnotes.xml");
    const std::string all = allOf(packageBytes(package), {"x", "y", "z"});
    const std::string xml = bodyXml(all);
    const std::string notes = opc::Package::read(all, "all.docx").readPart("/word/footnotes.xml");
    struct Case {
        const std::string& xml;
        std::string text;
        int count;
    };
    const std::vector<Case> cases{
        {xml, "docPr id=\"4\"", 1},
        {xml, "docPr id=\"5\"", 1},
        {xml, "docPr id=\"7\"", 1},
        {xml, "v:shapetype ", 1},
        {xml, "v:shape id=\"s\" type=\"#y\"", 1},
        {xml, "v:shape id=\"s_", 2},
        {xml, "v:shape id=\"s_6\"", 1},
        {xml, "w:name=\"Own\"", 1},
        {xml, "w:name=\"A\"", 0},
        {xml, "commentReference", 1},
        {xml, "paraId", 0},
        {xml, "<w:id ", 0},
        {xml, "footnoteReference w:id=\"2\"", 1},
        {xml, "footnoteReference w:id=", 3},
        {notes, "<w:footnote ", 4},
        {notes, "<w:t>y</w:t>", 1},
        {notes, "w:id=\"2\"", 1},
        {xml, "w:id=\"1002\"", 1},
        {notes, "w:id=\"1002\"", 1},
        {notes, "w:id=\"2002\"", 1},
    };
    for (const Case& c : cases) {
        int count = 0;
        for (std::size_t at = c.xml.find(c.text); at != std::string::npos; at = c.xml.find(c.text, at + 1))
            ++count;
        EXPECT_EQ(count, c.count) << c.text;
    }
}

}  // namespace
}  // namespace mergeloom
