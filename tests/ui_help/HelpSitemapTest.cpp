#include "ui/help/HelpSitemap.h"

#include <gtest/gtest.h>

#include <string>

namespace mergeloom {
namespace {

/// Returns "title>topic" of each entry with its children in brackets.
std::string outline(const std::vector<HelpEntry>& entries) {
    std::string text;
    for (const HelpEntry& entry : entries) {
        text += (text.empty() ? "" : " ") + entry.title.toStdString() + ">" + entry.topic.toStdString();
        if (!entry.children.empty()) text += "[" + outline(entry.children) + "]";
    }
    return text;
}

std::string entry(const std::string& title, const std::string& topic) {
    return R"(<li><OBJECT type="text/sitemap"><param name="Name" value=")" + title +
           R"("><param name="Local" value=")" + topic + R"("></OBJECT>)";
}

TEST(HelpSitemap, ReadsListsOfObjects) {
    struct Case {
        std::string html;
        const char* outline;
    };
    const Case cases[] = {
        {"", ""},
        {"<ul>" + entry("A", "a.html") + "<ul>" + entry("B", "b.html") + "</ul>" + entry("C", "c.html") +
             "</ul>",
         "A>a.html[B>b.html] C>c.html"},
        {"<UL><UL>" + entry("Tom &amp; Ann", "/t%20a.html") + "</UL></UL></UL>" +
             entry("Z", "sub\\z.html#end"),
         "Tom & Ann>t a.html Z>sub/z.html#end"},
        {R"(<object type="text/site properties"><param name="Name" value="No"></object>)", ""},
        {R"(<ul><object type=text/sitemap><param name='Name' value='Only a heading'></object>)",
         "Only a heading>"},
        {R"(<object type="text/sitemap"><param name="Name" value="cut)", ""},
    };
    for (const Case& item : cases) {
        EXPECT_EQ(outline(readSitemap(QString::fromStdString(item.html))), item.outline) << item.html;
    }
}

TEST(HelpSitemap, EndlessNestingIsNoProblem) {
    std::string html;
    for (int k = 0; k < 2'000; ++k)
        html += "<ul>" + entry("A", "a.html");
    EXPECT_EQ(readSitemap(QString::fromStdString(html)).size(), 1U);
}

}  // namespace
}  // namespace mergeloom
