#include "letters/LetterTest.h"

namespace mergeloom {
namespace {

/// A letter with the lines of an order between its captions and a row below them.
class LetterRows : public LetterTest {
  protected:
    LetterRows() {
        lists("Lines", {"Lines"});
        takes("LinesX", {{"Lines", "X"}});
        takes("LinesY", {{"Lines", "Y"}});
        takes("No", {{"No"}});
    }

    std::string linesTable() {
        return "<w:tbl>" +
               row(cell("<w:bookmarkStart w:id=\"50\" w:name=\"Lines\"/>" + run("X")) + cell(run("Y"))) +
               row(cell(place("LinesX", "<w:b/>")) + cell(place("LinesY") + run("!"))) +
               row(cell(run("Sum")) + cell(run("9"))) + "</w:tbl><w:bookmarkEnd w:id=\"50\"/>" +
               paragraph(place("No"));
    }
    static Record order(const std::vector<std::string>& lines) {
        std::vector<Record> records;
        records.reserve(lines.size());
        for (const std::string& line : lines)
            records.push_back({{shownControl("X", line), shownControl("Y", line + line)}});
        return {{subform("Lines", records), shownControl("No", "7")}};
    }
};

TEST_F(LetterRows, RepeatForEachRecordAboveTheRowsBelow) {
    const std::string body = linesTable();
    const std::string letter = letterOf(*compiled(wordFile(body)), {order({"a", "b", "c"})});
    EXPECT_EQ(shownBody(letter),
              "[Lines:X\n|Y\n|[LinesX:a]\n|[LinesY:aa]!\n|[_MergeloomRows1:b\n|bb!\n|c\n|cc!\n|]"
              "Sum\n|9\n|][No:7]\n");
    const std::string bold = "<w:rPr><w:b/></w:rPr>";
    std::size_t count = 0;
    const std::string xml = bodyXml(letter);
    for (std::size_t at = xml.find(bold); at != std::string::npos; at = xml.find(bold, at + 1))
        ++count;
    EXPECT_EQ(count, 3U);
}

TEST_F(LetterRows, AFilledLetterIsATemplateAsWell) {
    const std::string file = wordFile(linesTable());
    for (const std::vector<std::string>& lines :
         {std::vector<std::string>{"d"}, {"d", "e"}, {"d", "e", "f", "g"}}) {
        const std::string direct = letterOf(*compiled(file), {order(lines)});
        const std::string first = letterOf(*compiled(file), {order({"a", "b", "c"})});
        EXPECT_EQ(bodyXml(letterOf(*compiled(first), {order(lines)})), bodyXml(direct));
    }
}

TEST_F(LetterRows, WithoutRecordsOnlyTheCaptionsStay) {
    const std::string body = linesTable();
    EXPECT_EQ(filled(body, order({})), "[Lines:X\n|Y\n|[_MergeloomOmitted1:]Sum\n|9\n|][No:7]\n");
    settings.emptyTables = letters::EmptyTables::Remove;
    EXPECT_EQ(filled(body, order({})), "[_MergeloomOmitted1:][No:7]\n");
    EXPECT_TRUE(filled(body, order({"a"})).starts_with("[Lines:X\n"));
}

TEST_F(LetterRows, SeveralRowsAreOnePattern) {
    const std::string table = "<w:tbl>" +
                              row(cell("<w:bookmarkStart w:id=\"50\" w:name=\"Lines\"/>" + run("X"))) +
                              row(cell(place("LinesX"))) + row(cell(run("-"))) + row(cell(place("LinesY"))) +
                              "</w:tbl><w:bookmarkEnd w:id=\"50\"/>" + paragraph("");
    EXPECT_EQ(filled(table, order({"a", "b"})),
              "[Lines:X\n|[LinesX:a]\n|-\n|[LinesY:aa]\n|[_MergeloomRows1:b\n|-\n|bb\n|]]\n");
}

TEST_F(LetterRows, SubformsNest) {
    lists("Inner", {"Lines", "Inner"});
    takes("InnerZ", {{"Lines", "Inner", "Z"}});
    const std::string inner = "<w:tbl>" +
                              row(cell("<w:bookmarkStart w:id=\"60\" w:name=\"Inner\"/>" + place("InnerZ") +
                                       run(" of ") + place("No"))) +
                              "</w:tbl><w:bookmarkEnd w:id=\"60\"/><w:p/>";
    const std::string table = "<w:tbl>" +
                              row(cell("<w:bookmarkStart w:id=\"50\" w:name=\"Lines\"/>" + run("X"))) +
                              row("<w:tc>" + paragraph(place("LinesX")) + inner + "</w:tc>") +
                              "</w:tbl><w:bookmarkEnd w:id=\"50\"/><w:p/>";
    const auto line = [](const std::string& x, const std::vector<std::string>& zs) {
        std::vector<Record> records;
        records.reserve(zs.size());
        for (const std::string& z : zs)
            records.push_back({{shownControl("Z", z)}});
        return Record{{shownControl("X", x), subform("Inner", records)}};
    };
    const Record record{{subform("Lines", {line("a", {"1", "2"}), line("b", {}), line("c", {"3"})}),
                         shownControl("No", "7")}};
    std::string shown = filled(table, record);
    for (const char* mark : {"[Lines:", "[LinesX:", "[Inner:", "[InnerZ:", "[_MergeloomRows1:",
                             "[_MergeloomRows2:", "[No:", "]"})
        shown = replaceAll(shown, mark, "");
    EXPECT_EQ(shown, "X\n|a\n1 of 7\n|2 of 7\n|\n|b\n\n|c\n3 of 7\n|\n|\n");
}

TEST_F(LetterRows, ATableOfTheObjectListsAllRecords) {
    lists("OrdersT", {});
    const std::string table = "<w:tbl>" +
                              row(cell("<w:bookmarkStart w:id=\"50\" w:name=\"OrdersT\"/>" + run("N"))) +
                              row(cell(place("No"))) + "</w:tbl><w:bookmarkEnd w:id=\"50\"/><w:p/>";
    const auto letters = compiled(wordFile(table));
    EXPECT_TRUE(letters->listsRecords());
    const std::string letter =
        letterOf(*letters, {Record{{shownControl("No", "1")}}, Record{{shownControl("No", "2")}}});
    EXPECT_EQ(shownBody(letter), "[OrdersT:N\n|[No:1]\n|[_MergeloomRows1:2\n|]]\n");
}

}  // namespace
}  // namespace mergeloom
