#include "ui/dialogs/FileFilters.h"
#include "ui/dialogs/mComDlg.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace mergeloom {
namespace {

using testing::ElementsAre;

std::vector<FileFilter> parse(std::string filter) {
    std::ranges::replace(filter, '|', '\0');
    return parseFileFilters(filter + '\0');
}

TEST(FileFilters, Entries) {
    const std::vector<FileFilter> filters =
        parse(AddFilter("Web|*.htm; *.html", "All", "*.*", PatternInDescription::Shown));
    ASSERT_EQ(filters.size(), 2U);
    EXPECT_EQ(filters[0].description, "Web");
    EXPECT_THAT(filters[0].patterns, ElementsAre("*.htm", "*.html"));
    EXPECT_FALSE(filters[0].showsPatterns);
    EXPECT_EQ(filters[1].description, "All") << "the patterns are shown once";
    EXPECT_THAT(filters[1].patterns, ElementsAre("*")) << "files without a dot, too";
    EXPECT_TRUE(filters[1].showsPatterns);
    EXPECT_EQ(parse("Web|*.htm|").size(), 1U) << "a separator at the end is no entry";
    EXPECT_TRUE(parse("").empty());
}

TEST(FileFilters, Extensions) {
    EXPECT_EQ(extensionOf({"", {"*.docx", "*.doc"}}), "docx");
    EXPECT_EQ(extensionOf({"", {"*.doc?"}}), "");
    EXPECT_EQ(extensionOf({"", {"*"}}), "");
    EXPECT_EQ(extensionOf({}), "");

    const FileFilter filter{"", {"*.template"}};
    for (const char* name : {"a.docx", "a.b.XML", "a.TEMPLATE", "/x.y/a.7z"})
        EXPECT_TRUE(hasExtension(name, filter)) << name;
    for (const char* name : {"a", "a.", "Offer No. 5", "Version 1.2", "/x.y/a", "a.unknown"})
        EXPECT_FALSE(hasExtension(name, filter)) << name;
}

}  // namespace
}  // namespace mergeloom
