#include "office/libreoffice/session/MarkTags.h"

#include <gtest/gtest.h>

#include <vector>

namespace mergeloom::libreoffice {
namespace {

const std::string kStart = R"(<w:bookmarkStart w:id="4" w:name="T"/>)";
const std::string kEnd = R"(<w:bookmarkEnd w:id="4"/>)";

std::string table(const std::string& paragraphs) {
    return "<w:tbl><w:tr><w:tc>" + paragraphs + "</w:tc></w:tr></w:tbl>";
}

std::string paragraph(const std::string& content) {
    return "<w:p>" + content + "</w:p>";
}

TEST(EndsInCells, FromAfterTablesAndRows) {
    struct Case {
        std::string given, expected;
    };
    const std::string other = R"(<w:bookmarkStart w:id="9" w:name="U"/>)";
    const std::string otherEnd = R"(<w:bookmarkEnd w:id="9"/>)";
    const std::vector<Case> cases{
        {table(paragraph(kStart + "a")) + kEnd, table(paragraph(kStart + "a" + kEnd))},
        {kStart + table(paragraph("a")) + "\n " + kEnd, kStart + table(paragraph("a" + kEnd)) + "\n "},
        {table(paragraph(kStart + "a") + "<w:p/>") + kEnd, table(paragraph(kStart + "a") + paragraph(kEnd))},
        {table(paragraph(kStart + "a") + "<w:p w:rsidR=\"1\"/>") + kEnd,
         table(paragraph(kStart + "a") + "<w:p w:rsidR=\"1\">" + kEnd + "</w:p>")},
        {table(paragraph(kStart + other) + "<w:p/>") + kEnd + otherEnd,
         table(paragraph(kStart + other) + paragraph(kEnd + otherEnd))},
        {"<w:tr>" + paragraph(kStart) + "</w:tr>" + kEnd + "<w:tr/>",
         "<w:tr>" + paragraph(kStart + kEnd) + "</w:tr><w:tr/>"},
        {table(paragraph("a")) + kStart + kEnd + paragraph("b"), "untouched"},
        {table(paragraph("a")) + paragraph(kStart + "b") + kEnd, "untouched"},
        {table(paragraph(kStart + "a")) + "<w:p/>" + kEnd, "untouched"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(withEndsInCells(c.given).value_or("untouched"), c.expected) << c.given;
}

TEST(EndsInCells, NotInWhatIsNoPackage) {
    EXPECT_FALSE(packageWithEndsInCells("PK, but no archive", "a.docx"));
}

}  // namespace
}  // namespace mergeloom::libreoffice
