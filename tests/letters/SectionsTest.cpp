#include "letters/LetterTest.h"

#include <set>

namespace mergeloom {
namespace {

/// Numbering, and unique ids, in one document for all records.
class LetterSections : public LetterTest {
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
    static std::string withLists(const std::string& body, const std::string& lists) {
        opc::Package package = opc::Package::read(wordFile(body), "lists.docx");
        package.addPart(
            "/word/numbering.xml",
            "application/vnd.openxmlformats-officedocument.wordprocessingml.numbering+xml",
            "<w:numbering xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">" + lists +
                "</w:numbering>");
        package.relationshipsOf(kMainPart).addPart(
            opc::officeRelationshipType("numbering", opc::Conformance::Transitional), "/word/numbering.xml");
        return packageBytes(package);
    }
    static std::string item(const std::string& list) {
        return "<w:p><w:pPr><w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"" + list +
               "\"/></w:numPr></w:pPr></w:p>";
    }
    static std::string definition(const std::string& id, const std::string& format,
                                  const std::string& start) {
        return "<w:abstractNum w:abstractNumId=\"" + id + "\"><w:lvl w:ilvl=\"0\"><w:start w:val=\"" + start +
               "\"/><w:numFmt w:val=\"" + format + "\"/></w:lvl></w:abstractNum>";
    }
    static std::string list(const std::string& id, const std::string& definition) {
        return "<w:num w:numId=\"" + id + "\"><w:abstractNumId w:val=\"" + definition + "\"/></w:num>";
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
