#include "letters/ListTest.h"

#include <set>

namespace mergeloom {
namespace {

/// Numbering and unique ids in one document of all records.
class LetterSections : public ListTest {
  protected:
    LetterSections() {
        settings.use = letters::LetterUse::OneForAll;
        takes("A", {{"A"}});
    }

    opc::Package allOf(const std::string& file, int records) {
        letters_ = compiled(file);
        for (int record = 0; record < records; ++record)
            letters_->append({{shownControl("A", std::to_string(record))}});
        files.save("/all.docx", [&](ByteSink& sink) { letters_->finish(sink); });
        return opc::Package::read(files.files["/all.docx"], "all.docx");
    }
    static std::vector<std::string> valuesOf(const std::string& xml, const std::string& start) {
        std::vector<std::string> values;
        for (std::size_t at = xml.find(start); at != std::string::npos; at = xml.find(start, at + 1)) {
            const std::size_t first = at + start.size();
            values.push_back(xml.substr(first, xml.find('"', first) - first));
        }
        return values;
    }
    static std::string item(const std::string& list) {
        return paragraph("<w:pPr>" + inList(list) + "</w:pPr>");
    }

    std::unique_ptr<letters::Letters> letters_;
};

TEST_F(LetterSections, BeginOnTheSideOfTheTemplate) {
    const std::vector<std::pair<std::string, std::string>> cases{{"oddPage", "1"}, {"evenPage", "2"}};
    for (const auto& [side, start] : cases) {
        const std::string body =
            paragraph(place("A")) + "<w:sectPr><w:type w:val=\"" + side + "\"/></w:sectPr>";
        const std::string xml = allOf(wordFile(body), 2).readPart(kMainPart);
        EXPECT_EQ(valuesOf(xml, "<w:type w:val=\""), (std::vector<std::string>{side, side}));
        EXPECT_EQ(valuesOf(xml, "<w:pgNumType w:start=\""), (std::vector<std::string>{start, start}));
    }
}

TEST_F(LetterSections, ListsBeginAgain) {
    const std::string lists = definition("7", "decimal", "3") + definition("8", "bullet", "1") +
                              list("1", "7") + list("2", "8") + list("4", "7");
    const std::string file = withLists(paragraph(place("A")) + item("1") + item("2") + item("1"), lists);
    const opc::Package all = allOf(file, 3);
    EXPECT_EQ(valuesOf(all.readPart(kMainPart), "<w:numId w:val=\""),
              (std::vector<std::string>{"1", "2", "1", "5", "2", "5", "6", "2", "6"}));
    const std::string restarted =
        "<w:abstractNumId w:val=\"7\"/><w:lvlOverride w:ilvl=\"0\"><w:startOverride "
        "w:val=\"3\"/></w:lvlOverride></w:num>";
    const std::string numbering = all.readPart("/word/numbering.xml");
    EXPECT_NE(
        numbering.find(lists + "<w:num w:numId=\"5\">" + restarted + "<w:num w:numId=\"6\">" + restarted),
        std::string::npos)
        << numbering;
    EXPECT_TRUE(letters_->remarks().empty());
    // One record needs no further list.
    EXPECT_EQ(allOf(file, 1).readPart("/word/numbering.xml"),
              opc::Package::read(file, "lists.docx").readPart("/word/numbering.xml"));
}

/// The list of a style becomes a list of the paragraph, with the level that refers to the style and with the
/// indents of the style.
TEST_F(LetterSections, ListsOfStylesBeginAgain) {
    const std::string levels =
        "<w:lvl w:ilvl=\"0\"><w:numFmt w:val=\"decimal\"/></w:lvl>"
        "<w:lvl w:ilvl=\"1\"><w:numFmt w:val=\"decimal\"/><w:pStyle w:val=\"Numbers\"/></w:lvl>";
    const std::string lists =
        "<w:abstractNum w:abstractNumId=\"7\">" + levels + "<w:styleLink w:val=\"S\"/></w:abstractNum>" +
        "<w:abstractNum w:abstractNumId=\"8\"><w:numStyleLink w:val=\"S\"/></w:abstractNum>" + list("3", "8");
    const std::string styles = numberedStyle("Numbers", "3", "<w:ind w:left=\"9\" w:hanging=\"5\"/>") +
                               basedStyle("Item", "Numbers", "", "<w:ind w:left=\"8\"/>") +
                               "<w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Default\"/>";
    const std::string file = withStyles(
        withLists(paragraph("<w:pPr>" + ofStyle("Item") + "<w:ind w:firstLine=\"1\"/></w:pPr>" + place("A")) +
                      paragraph(run("t")),
                  lists),
        styles);
    const std::string xml = allOf(file, 2).readPart(kMainPart);
    for (const char* id : {"3", "4"}) {
        EXPECT_NE(xml.find("<w:pStyle w:val=\"Item\"/><w:numPr><w:ilvl w:val=\"1\"/><w:numId w:val=\"" +
                           std::string(id) + "\"/></w:numPr><w:ind w:firstLine=\"1\" w:left=\"8\"/></w:pPr>"),
                  std::string::npos)
            << xml;
    }
    EXPECT_EQ(valuesOf(xml, "<w:numId w:val=\"").size(), 2U) << xml;
}

/// Paragraphs of rich text are in the list of their record.
TEST_F(LetterSections, ParagraphsOfRichTextStayInTheirList) {
    const std::string file =
        withLists(paragraph("<w:pPr>" + inList("1") + "</w:pPr>" + place("A")) + paragraph(run("t")),
                  definition("7", "decimal", "1") + list("1", "7"));
    letters_ = compiled(file);
    for (int record = 0; record < 2; ++record)
        letters_->append({{{.name = "A", .richText = "<div>x</div><div>y</div>", .records = {}}}});
    files.save("/all.docx", [&](ByteSink& sink) { letters_->finish(sink); });
    EXPECT_EQ(valuesOf(bodyXml(files.files["/all.docx"]), "<w:numId w:val=\""),
              (std::vector<std::string>{"1", "1", "2", "2"}));
}

TEST_F(LetterSections, MoreListsThanWordKnowsAreTold) {
    const std::string file =
        withLists(paragraph(place("A")) + item("1"), definition("7", "decimal", "1") + list("1", "7"));
    const opc::Package all = allOf(file, 2048);
    const std::vector<std::string> ids = valuesOf(all.readPart(kMainPart), "<w:numId w:val=\"");
    EXPECT_EQ(ids[2045], "2046");
    EXPECT_EQ(ids[2047], "1");
    ASSERT_EQ(letters_->remarks().size(), 1U);
}

TEST_F(LetterSections, IdsOfTrackedChangesAreUnique) {
    const std::string change =
        "<w:ins w:id=\"5\">" + run("i") + "</w:ins><w:del w:id=\"6\">" +
        inRun("<w:delText>d</w:delText>", "<w:rPrChange w:id=\"7\"/>") + "</w:del>" +
        "<w:moveFromRangeStart w:id=\"8\" w:name=\"m\"/><w:moveFromRangeEnd w:id=\"8\"/>";
    const std::string xml = allOf(wordFile(paragraph(place("A") + change)), 3).readPart(kMainPart);
    std::vector<std::string> ids;
    for (const char* element : {"ins", "del", "rPrChange", "moveFromRangeStart"}) {
        const std::vector<std::string> some = valuesOf(xml, "<w:" + std::string(element) + " w:id=\"");
        EXPECT_EQ(some.size(), 3U) << element;
        ids.insert(ids.end(), some.begin(), some.end());
    }
    EXPECT_EQ(valuesOf(xml, "<w:moveFromRangeStart w:id=\""), valuesOf(xml, "<w:moveFromRangeEnd w:id=\""));
    EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size()) << xml;
}

}  // namespace
}  // namespace mergeloom
