#include "letters/LetterTest.h"

namespace mergeloom {
namespace {

std::string mergedCell(const std::string& merge, const std::string& content) {
    return "<w:tc><w:tcPr><w:vMerge" + merge + "/></w:tcPr>" + paragraph(content) + "</w:tc>";
}

/// Tables that list the records of a subform, with bookmarks around them that users moved or removed.
class LetterTables : public LetterTest {
  protected:
    LetterTables() {
        lists("S", {"S"});
        takes("SL", {{"S", "L"}});
        takes("SL_ref1", {{"S", "L"}});
        takes("TM", {{"T", "M"}});
        takes("A", {{"A"}});
    }

    static std::string startOf() { return "<w:bookmarkStart w:id=\"90\" w:name=\"S\"/>"; }
    static std::string endOf() { return "<w:bookmarkEnd w:id=\"90\"/>"; }
    static std::string table(const std::string& rows) { return "<w:tbl>" + rows + "</w:tbl>"; }
    std::string lines(const std::string& name = "SL") {
        return table(row(cell(run("cap"))) + row(cell(place(name))));
    }
    static std::string inControl(const std::string& content) {
        return "<w:sdt><w:sdtContent>" + content + "</w:sdtContent></w:sdt>";
    }

    static std::vector<Record> records(const std::string& control, const std::vector<std::string>& values) {
        std::vector<Record> found;
        found.reserve(values.size());
        for (const std::string& value : values)
            found.push_back({{shownControl(control, value)}});
        return found;
    }
    static Record record(const std::vector<std::string>& values) {
        return {{subform("S", records("L", values)), subform("T", records("M", {"m", "n"})),
                 shownControl("A", "a")}};
    }
    /// Returns the text of a filled letter without its marks.
    std::string text(const std::string& body, const std::vector<std::string>& values) {
        return withoutMarks(filled(body, record(values)));
    }
    static std::string withoutMarks(std::string shown) {
        for (std::size_t at = shown.find('['); at != std::string::npos; at = shown.find('['))
            shown.erase(at, shown.find(':', at) - at + 1);
        return replaceAll(shown, "]", "");
    }
};

TEST_F(LetterTables, RepeatWhereverTheirBookmarkIs) {
    struct Case {
        std::string what;
        std::string body;
        std::string expected;
    };
    const std::string all = "cap\n|1\n|2\n|";
    const std::string block = startOf() + lines() + endOf();
    const std::string outer = row(cell(run("out")) + "<w:tc>" + paragraph(startOf() + run("x")) + lines() +
                                  endOf() + paragraph("") + "</w:tc>");
    const std::vector<Case> cases{
        {"no bookmark", lines() + "<w:p/>", all + "\n"},
        {"collapsed before it", startOf() + endOf() + lines() + "<w:p/>", all + "\n"},
        {"from the paragraph above", paragraph(startOf() + run("x")) + lines() + paragraph(endOf()),
         "x\n" + all + "\n"},
        {"around a content control", startOf() + inControl(lines()) + endOf() + "<w:p/>", all + "\n"},
        {"around another table as well",
         startOf() + table(row(cell(run("y")))) + "<w:p/>" + lines() + endOf() + "<w:p/>",
         "y\n|\n" + all + "\n"},
        {"around two tables", startOf() + lines() + "<w:p/>" + lines("SL_ref1") + endOf() + "<w:p/>",
         all + "\n" + all + "\n"},
        {"from the cell around it", table(outer) + "<w:p/>", "out\n|x\n" + all + "\n|\n"},
        {"around the table around it",
         startOf() + table(row("<w:tc>" + lines() + "<w:p/></w:tc>")) + endOf() + "<w:p/>",
         "cap\n|1\n|\n|cap\n|2\n|\n|\n"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(text(c.body, {"1", "2"}), c.expected) << c.what;
        const std::string first = files.files["/letter.docx"];
        filled(c.body, record({"3", "4", "5"}));
        EXPECT_EQ(bodyXml(letterOf(*compiled(first), {record({"3", "4", "5"})})),
                  bodyXml(files.files["/letter.docx"]))
            << c.what;
    }
    EXPECT_EQ(text(block + "<w:p/>", {}), "cap\n|\n");
}

TEST_F(LetterTables, WithoutRecordsStayValid) {
    struct Case {
        std::string what;
        std::string body;
        std::string expected;
    };
    const std::string pattern = row(cell(place("SL")));
    const std::vector<Case> cases{
        {"only the pattern", startOf() + table(pattern) + endOf() + "<w:p/>", "[S:[_MergeloomOmitted1:]]\n"},
        {"the mark in the pattern",
         table(row("<w:tc>" + paragraph(startOf() + place("SL")) + "</w:tc>") + row(cell(run("sum")))) +
             endOf() + "<w:p/>",
         "[S:[_MergeloomOmitted1:]sum\n|]\n"},
        {"no bookmark", table(row(cell(run("cap"))) + pattern) + "<w:p/>", "cap\n|[SL:]\n|\n"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(filled(c.body, record({})), c.expected) << c.what;
        // The rows are restored together with records.
        const std::string letter = files.files["/letter.docx"];
        EXPECT_EQ(shownBody(letterOf(*compiled(letter), {record({})})), c.expected) << c.what;
        const std::string direct = text(c.body, {"1", "2"});
        EXPECT_EQ(withoutMarks(shownBody(letterOf(*compiled(letter), {record({"1", "2"})}))), direct)
            << c.what;
    }
}

TEST_F(LetterTables, ReturnAfterALetterWithoutRecords) {
    const std::string last = paragraph(place("A"));
    const std::string body =
        startOf() + table(row(cell(run("cap"))) + row(cell(place("SL", "<w:b/>"))) + row(cell(run("sum")))) +
        endOf() + last;
    const std::string file = wordFile(body);
    for (const letters::EmptyTables rule :
         {letters::EmptyTables::KeepCaptions, letters::EmptyTables::Remove}) {
        settings.emptyTables = rule;
        const std::string empty = letterOf(*compiled(file), {record({})});
        const std::string direct = letterOf(*compiled(file), {record({"1", "2"})});
        EXPECT_EQ(bodyXml(letterOf(*compiled(empty), {record({"1", "2"})})), bodyXml(direct));
        // Word moves marks into the paragraph after them, and renumbers bookmarks.
        opc::Package package = opc::Package::read(empty, "letter.docx");
        std::string xml = package.readPart(kMainPart);
        const std::size_t mark = xml.find("<w:bookmarkStart w:id=\"91\" w:name=\"_MergeloomOmitted1\"/>");
        ASSERT_NE(mark, std::string::npos) << xml;
        const std::size_t end = xml.find("/>", xml.find("<w:bookmarkEnd", mark)) + 2;
        const std::string moved = replaceAll(xml.substr(mark, end - mark), "91", "5");
        xml.erase(mark, end - mark);
        xml.insert(xml.find("<w:p>", mark) + 5, moved);
        package.writePart(kMainPart, replaceAll(xml, "w:id=\"1\"", "w:id=\"2\""));
        EXPECT_EQ(withoutMarks(shownBody(letterOf(*compiled(packageBytes(package)), {record({"1", "2"})}))),
                  withoutMarks(shownBody(direct)));
    }
}

TEST_F(LetterTables, MergedRowsAreOnePattern) {
    const std::string restart = " w:val=\"restart\"";
    const std::string side = row(mergedCell(restart, run("side")) + cell(run("cap"))) +
                             row(mergedCell("", "") + cell(place("SL"))) + row(cell(run("sum")) + cell(""));
    EXPECT_EQ(text(table(side), {"1", "2"}), "side\n|cap\n|\n|1\n|\n|2\n|sum\n|\n|\n");
    const std::string two = row(mergedCell(restart, place("SL")) + cell(run("x"))) +
                            row(mergedCell("", "") + cell(run("y"))) + row(cell(run("sum")) + cell(""));
    EXPECT_EQ(text(table(two), {"1", "2"}), "1\n|x\n|\n|y\n|2\n|x\n|\n|y\n|sum\n|\n|\n");
}

TEST_F(LetterTables, TellOfWhichSubformsOnlyTheFirstRecordIsShown) {
    using Paths = std::vector<letters::ControlPath>;
    struct Case {
        std::string what;
        std::string body;
        Paths firsts;
        Paths withoutRows;
    };
    const std::string both = row(cell(place("SL")) + cell(place("TM")));
    const std::vector<Case> cases{
        {"a table", lines(), {}, {}},
        {"no table", paragraph(place("SL") + place("A")), {{"S"}}, {}},
        {"two subforms in a row", table(both), {{"T"}}, {}},
        {"no row", startOf() + table(row(cell(run("cap")))) + endOf() + paragraph(place("A")), {}, {{"S"}}},
        {"text in a cell", table(row(cell(startOf() + run("S") + endOf() + place("A")))), {}, {}},
    };
    for (const Case& c : cases) {
        const auto letters = compiled(wordFile(c.body));
        EXPECT_EQ(letters->firstRecordsOnly(), c.firsts) << c.what;
        EXPECT_EQ(letters->tablesWithoutRows(), c.withoutRows) << c.what;
    }
}

}  // namespace
}  // namespace mergeloom
