#include "office/libreoffice/remote/WholeBookmarks.h"

#include <gtest/gtest.h>

#include <vector>

namespace mergeloom::libreoffice {
namespace {

std::string start(const char* id, const char* name) {
    return "<w:bookmarkStart w:id=\"" + std::string(id) + "\" w:name=\"" + name + "\"/>";
}

std::string end(const char* id) {
    return "<w:bookmarkEnd w:id=\"" + std::string(id) + "\"/>";
}

TEST(WholeBookmarks, OneStartAndOneEnd) {
    struct Case {
        std::string written;
        std::string expected;
    };
    const std::vector<Case> cases{
        {start("0", "T") + "one" + start("1", "T") + "two" + end("1"), start("0", "T") + "onetwo" + end("0")},
        {start("0", "T") + end("0") + "one" + start("1", "T") + end("1"), start("0", "T") + "one" + end("0")},
        {start("0", "A") + start("1", "B") + "b" + end("1") + start("2", "A") + end("2"),
         start("0", "A") + start("1", "B") + "b" + end("1") + end("0")},
    };
    for (const Case& c : cases)
        EXPECT_EQ(withWholeBookmarks(c.written).value_or("untouched"), c.expected) << c.written;
    EXPECT_FALSE(withWholeBookmarks(start("0", "A") + "a" + end("0") + start("1", "B") + end("1")));
    const std::string box = start("0", "A") + "a" + end("0");
    EXPECT_FALSE(
        withWholeBookmarks(box + "<mc:Fallback>" + start("1", "A") + "a" + end("1") + "</mc:Fallback>"));
}

TEST(WholeBookmarks, OverTheWholeOfATable) {
    const std::string table = start("0", "T") + "a" + start("1", "T") + "b";
    EXPECT_EQ(withWholeBookmarks("<w:tbl>" + table + end("1") + "</w:tbl>c", {"T"}),
              "<w:tbl>" + start("0", "T") + "ab</w:tbl>" + end("0") + "c");
    EXPECT_EQ(withWholeBookmarks("<w:tbl>" + start("0", "T") + end("0") + "</w:tbl>", {"T"}),
              "<w:tbl>" + start("0", "T") + "</w:tbl>" + end("0"));
}

}  // namespace
}  // namespace mergeloom::libreoffice
