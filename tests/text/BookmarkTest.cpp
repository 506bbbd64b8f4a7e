#include "text/StoryTest.h"

#include <gtest/gtest.h>

namespace mergeloom::embedded {
namespace {

using std::string;

string start(int id, const string& name) {
    return "<w:bookmarkStart w:id=\"" + std::to_string(id) + "\" w:name=\"" + name + "\"/>";
}
string end(int id) {
    return "<w:bookmarkEnd w:id=\"" + std::to_string(id) + "\"/>";
}
string run(const string& text) {
    return "<w:r><w:t>" + text + "</w:t></w:r>";
}
string paragraph(const string& inside) {
    return inside.empty() ? "<w:p/>" : "<w:p>" + inside + "</w:p>";
}
string cell(const string& text) {
    return "<w:tc>" + paragraph(run(text)) + "</w:tc>";
}

const string kTable = "<w:tbl><w:tr>" + cell("1") + cell("2") + cell("3") + "</w:tr><w:tr>" + cell("4") +
                      cell("5") + cell("6") + "</w:tr></w:tbl>" + paragraph("");

/// Adds the bookmark N with the id 101 to a range. Returns the new body with short marks, "[" and "]".
string marked(const string& body, int from, int to) {
    OpenBody part(body);
    part.add("N", from, to);
    string xml = replaceAll(part.bodyXml(), end(101), "]");
    xml = replaceAll(xml, "<w:bookmarkStart w:id=\"101\" w:name=\"N\"", "[@");
    return replaceAll(xml, "[@/>", "[");
}

TEST(BookmarkEditor, putsMarksWhereWordDoes) {
    const string link = "<w:hyperlink>" + run("b") + "</w:hyperlink>";
    EXPECT_EQ(marked(paragraph(run("abc")), 1, 2), paragraph(run("a") + "[" + run("b") + "]" + run("c")));
    EXPECT_EQ(marked(paragraph(run("a")), 0, 0), paragraph("[]" + run("a")));
    EXPECT_EQ(marked(paragraph(run("a")) + paragraph(run("b")), 1, 3),
              paragraph(run("a") + "[") + paragraph(run("b") + "]"));
    EXPECT_EQ(marked(paragraph(run("a")) + paragraph(""), 0, 2),
              paragraph("[" + run("a")) + "]" + paragraph(""));
    EXPECT_EQ(marked(paragraph(run("a") + link), 1, 2), paragraph(run("a") + "[" + link + "]"));
    EXPECT_EQ(
        marked(paragraph("<w:del><w:r><w:delText>ab</w:delText></w:r></w:del>"), 1, 1),
        paragraph("<w:del><w:r><w:delText>a</w:delText></w:r>[]<w:r><w:delText>b</w:delText></w:r></w:del>"));
    // Inserted text is after every mark: inside a bookmark that starts there, but outside of one that ends
    // there.
    const string touching = paragraph(start(1, "A") + run("a") + end(1) + start(2, "B") + run("b") + end(2));
    EXPECT_EQ(marked(touching, 1, 1),
              paragraph(start(1, "A") + run("a") + end(1) + start(2, "B") + "[]" + run("b") + end(2)));
}

TEST(BookmarkEditor, marksCellsByTheirColumns) {
    const auto columns = [](int from, int to) {
        const string xml = marked(kTable, from, to);
        const std::size_t at = xml.find("[@");
        return at == string::npos ? "none" : xml.substr(at + 2, xml.find('>', at) - at - 2);
    };
    EXPECT_EQ(columns(0, 4), " w:colFirst=\"0\" w:colLast=\"1\"/");
    EXPECT_EQ(columns(2, 13), " w:colFirst=\"1\" w:colLast=\"2\"/");
    EXPECT_EQ(columns(0, 2), "none") << "one cell";
    EXPECT_EQ(columns(0, 7), "none") << "a whole row";
    EXPECT_EQ(columns(0, 14), "none") << "the whole table";
    const string whole = marked(kTable, 0, 14);
    EXPECT_NE(whole.find("</w:tbl>]"), string::npos) << whole;
}

TEST(BookmarkEditor, keepsColumnsTrueWhenABookmarkMoves) {
    OpenBody part(kTable);
    BookmarkRecord& record = part.add("N", 0, 4);
    const string before = part.bodyXml();
    part.journal.start();
    part.body().bookmarks.moveEnd(record, {6});
    EXPECT_NE(part.bodyXml().find("w:colFirst=\"0\" w:colLast=\"2\""), string::npos);
    part.body().bookmarks.moveStart(record, {4});
    EXPECT_EQ(part.bodyXml().find("w:col"), string::npos) << "one cell";
    part.journal.undo();
    EXPECT_EQ(part.bodyXml(), before);
}

TEST(BookmarkEditor, refusesPlacesWhereNothingCanStand) {
    OpenBody part(kTable);
    EXPECT_EQ(errorOf([&] { part.add("N", 6, 8); }), "No text can stand at this place.");
    EXPECT_EQ(errorOf([&] { part.add("N", 15, 15); }), "No text can stand at this place.");
    EXPECT_EQ(errorOf([&] { part.add("N", 3, 20); }), "The range from 3 to 20 lies outside the text.");
    EXPECT_EQ(part.bodyXml(), kTable);
    EXPECT_FALSE(part.part->isDirty());
}

TEST(BookmarkEditor, takesTheCopyInAFallbackAlong) {
    const auto box = [](const string& inside) {
        return "<w:r><mc:AlternateContent><mc:Choice><w:drawing><wp:inline><w:txbxContent>" +
               paragraph(inside) +
               "</w:txbxContent></wp:inline></w:drawing></mc:Choice><mc:Fallback><w:pict><w:txbxContent>" +
               paragraph(inside) + "</w:txbxContent></w:pict></mc:Fallback></mc:AlternateContent></w:r>";
    };
    OpenBody part(paragraph(box(start(1, "A") + run("a") + end(1)) + box(start(2, "B") + end(2))));
    part.stories[1].bookmarks.remove(*part.table.find("A"));
    EXPECT_EQ(part.bodyXml(), paragraph(box(run("a")) + box(start(2, "B") + end(2))));
}

TEST(BookmarkTable, listsByNameWithoutLetterCase) {
    OpenBody part(paragraph(run("abcdef")));
    for (const char* name : {"b", "_GoBack", "C", "a", "\u00C4"})
        part.add(name, 0, 1);
    std::string names;
    for (const BookmarkRecord* record : part.table.inNameOrder())
        names += record->name + " ";
    EXPECT_EQ(names, "a b C \u00C4 ");
    EXPECT_EQ(part.table.find("\u00E4"), part.table.find("\u00C4"));
    EXPECT_NE(part.table.find("_goback"), nullptr);
    part.body().bookmarks.remove(*part.table.find("B"));
    EXPECT_EQ(part.table.find("b"), nullptr);
    EXPECT_EQ(part.table.inNameOrder().size(), 3U);
}

TEST(BookmarkTable, findsManyNamesWhileOthersGoAndComeBack) {
    OpenBody part(paragraph(run("a")));
    constexpr int kNames = 300;
    const auto nameOf = [](int number) { return "Field" + std::to_string(number); };
    for (int round = 0; round < 3; ++round) {
        for (int number = 0; number < kNames; ++number)
            part.add(nameOf(number), 0, 0);
        // Every third name is absent until the next round.
        for (int number = 0; number < kNames; number += 3)
            part.body().bookmarks.remove(*part.table.find("FIELD" + std::to_string(number)));
        for (int number = 0; number < kNames; ++number) {
            const BookmarkRecord* const found = part.table.find(nameOf(number));
            EXPECT_EQ(found ? found->name : "", number % 3 == 0 ? "" : nameOf(number));
        }
        EXPECT_EQ(part.table.inNameOrder().size(), 2 * kNames / 3);
        for (int number = 0; number < kNames; ++number)
            if (number % 3 != 0) part.body().bookmarks.remove(*part.table.find(nameOf(number)));
    }
    EXPECT_TRUE(part.table.inNameOrder().empty());
}

TEST(BookmarkTable, findsTheFirstFreeCounterAlsoAfterDeletions) {
    OpenBody part(paragraph(run("a")));
    EXPECT_EQ(part.table.firstFreeCounter("F_ref"), 1);
    for (const char* name : {"f_ref1", "F_REF2", "F_ref3", "F_ref04", "F_ref12", "F_ref5"})
        part.add(name, 0, 1);
    EXPECT_EQ(part.table.firstFreeCounter("F_ref"), 4);
    EXPECT_EQ(part.table.firstFreeCounter("F_ref1"), 1);
    const auto remove = [&](const char* name) { part.body().bookmarks.remove(*part.table.find(name)); };
    remove("F_ref12");
    EXPECT_EQ(part.table.firstFreeCounter("F_ref"), 4);
    remove("F_Ref2");
    EXPECT_EQ(part.table.firstFreeCounter("f_REF"), 2);
    part.add("F_ref2", 0, 0);
    EXPECT_EQ(part.table.firstFreeCounter("F_ref"), 4);
    part.journal.start();
    part.add("F_ref4", 0, 0);
    EXPECT_EQ(part.table.firstFreeCounter("F_ref"), 6);
    part.journal.undo();
    EXPECT_EQ(part.table.firstFreeCounter("F_ref"), 4);
}

}  // namespace
}  // namespace mergeloom::embedded
