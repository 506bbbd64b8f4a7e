#include "letters/LetterTest.h"

namespace mergeloom {
namespace {

std::string labelCell(const std::string& width, const std::string& content) {
    return "<w:tc><w:tcPr><w:tcW w:w=\"" + width + "\" w:type=\"dxa\"/></w:tcPr>" + paragraph(content) +
           "</w:tc>";
}

/// A sheet of three labels with a gap between two of them.
class Labels : public LetterTest {
  protected:
    Labels() { takes("Name", {{"Name"}}); }

    std::string sheet() {
        return wordFile(
            "<w:tbl>" +
            row(labelCell("4000", place("Name") + run(",")) + labelCell("200", "") + labelCell("4000", "")) +
            row(labelCell("4000", "") + labelCell("200", "") + labelCell("4000", run("used"))) +
            "</w:tbl><w:p/><w:sectPr/>");
    }
    static std::vector<Record> named(const std::vector<std::string>& names) {
        std::vector<Record> records;
        records.reserve(names.size());
        for (const std::string& name : names)
            records.push_back({{shownControl("Name", name)}});
        return records;
    }
};

TEST_F(Labels, TakeOneRecordEach) {
    const auto letters = compiled(sheet());
    EXPECT_EQ(shownBody(letterOf(*letters, named({"a", "b", "c"}))),
              "[Name:a],\n|\n|[_MergeloomLabel1:]b,\n|[_MergeloomLabel2:]c,\n|\n|used\n|\n");
    EXPECT_EQ(shownBody(letterOf(*letters, named({"a", "b"}))),
              "[Name:a],\n|\n|[_MergeloomLabel1:]b,\n|\n|\n|used\n|\n");
}

TEST_F(Labels, OfAFilledSheetAreFilledAgain) {
    const std::string file = sheet();
    const std::string filled = letterOf(*compiled(file), named({"a", "b", "c"}));
    for (const std::vector<std::string>& names :
         {std::vector<std::string>{"d"}, {"d", "e"}, {"d", "e", "f"}}) {
        const std::string direct = letterOf(*compiled(file), named(names));
        EXPECT_EQ(bodyXml(letterOf(*compiled(filled), named(names))), bodyXml(direct));
    }
}

TEST_F(Labels, TakeAsManySheetsAsNeeded) {
    settings.use = letters::LetterUse::OneForAll;
    const auto letters = compiled(sheet());
    for (const Record& record : named({"a", "b", "c", "d"}))
        letters->append(record);
    files.save("/all.docx", [&](ByteSink& sink) { letters->finish(sink); });
    EXPECT_EQ(shownBody(files.files["/all.docx"]),
              "a,\n|\n|b,\n|c,\n|\n|used\n|\nd,\n|\n|\n|\n|\n|used\n|\n");
}

/// A document with other places or text outside of the table is no sheet of labels.
TEST_F(Labels, AreFoundByTheirPlaces) {
    takes("Other", {{"Other"}});
    files.files["/other.docx"] =
        wordFile("<w:tbl>" + row(labelCell("4000", place("Name")) + labelCell("4000", "")) + "</w:tbl>" +
                 paragraph(place("Other")));
    EXPECT_EQ(embedded::openLetterTemplate(files, "/other.docx")->labelsPerSheet(sources), 0U);
    files.files["/letter.docx"] =
        wordFile("<w:tbl>" + row(labelCell("4000", place("Name")) + labelCell("4000", "")) + "</w:tbl>" +
                 paragraph(run("Dear friend")));
    EXPECT_EQ(embedded::openLetterTemplate(files, "/letter.docx")->labelsPerSheet(sources), 0U);
    files.files["/sheet.docx"] = sheet();
    EXPECT_EQ(embedded::openLetterTemplate(files, "/sheet.docx")->labelsPerSheet(sources), 3U);
}

}  // namespace
}  // namespace mergeloom
