#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlScanner.h"
#include "office/embedded/sheet/XmlText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace mergeloom::embedded {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// Returns the tags of a text: "a1" for a start tag in depth 1, "/a1" for an end tag, "a1/" for an empty
/// element.
std::vector<std::string> tagsOf(const std::string& xml) {
    std::vector<std::string> tags;
    for (XmlScanner scanner(xml); scanner.next();) {
        const std::string name = std::string(scanner.name()) + std::to_string(scanner.depth());
        if (scanner.kind() == TagKind::Start) tags.push_back(name);
        if (scanner.kind() == TagKind::End) tags.push_back("/" + name);
        if (scanner.kind() == TagKind::Empty) tags.push_back(name + "/");
    }
    return tags;
}

TEST(XmlScanner, GoesThroughTagsAndPassesOverAllElse) {
    EXPECT_THAT(
        tagsOf(
            "\xEF\xBB\xBF<?xml version='1.0'?><!-- <x> -->\n<a><x:b k=\"1\"/>text<c\n></c ></a>\n<?p <y>?>"),
        ElementsAre("a1", "x:b2/", "c2", "/c2", "/a1"));
    EXPECT_THAT(tagsOf("<a k='>' l=\"/>'\"><![CDATA[<b>]]>]]></a>"), ElementsAre("a1", "/a1"));
    EXPECT_THAT(tagsOf(""), ElementsAre());
}

TEST(XmlScanner, RefusesWhatIsNotWellFormed) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"<a>", "does not end"},
        {"<a></b>", "end tag without its start tag"},
        {"</a>", "end tag without its start tag"},
        {"<a><b></a></b>", "end tag without its start tag"},
        {"<a></ab>", "end tag without its start tag"},
        {"<ab></a>", "end tag without its start tag"},
        {"<a></a b>", "does not end"},
        {"<a", "does not end"},
        {"<a b", "without a value"},
        {"<a b=>", "without quotes"},
        {"<a b='1", "value that does not end"},
        {"<a b='1'c='2'/>", "does not end"},
        {"<a b='<'/>", "\"<\" in a value"},
        {"<a/ >", "inside of a tag"},
        {"<a></a", "does not end"},
        {"<>", "name was expected"},
        {"<1/>", "name was expected"},
        {"< a/>", "name was expected"},
        {"<a><", "name was expected"},
        {"<!-- ", "does not end"},
        {"<?a ", "does not end"},
        {"<a><![CDATA[x</a>", "does not end"},
        {"<a><!b></a>", "tag without a name"},
        {"x<a/>", "text outside"},
        {"<a/>x", "text outside"},
        {"<![CDATA[]]><a/>", "tag without a name"},
        {"<!DOCTYPE a><a/>", "document type"},
    };
    for (const auto& [xml, reason] : cases) {
        try {
            tagsOf(xml);
            ADD_FAILURE() << xml << " was taken";
        } catch (const BadXml& problem) {
            EXPECT_THAT(problem.what(), HasSubstr(reason)) << xml;
        }
    }
}

TEST(XmlScanner, RefusesEndlessNesting) {
    std::string xml;
    for (int i = 0; i < 1000; ++i)
        xml += "<a>";
    std::string closed = xml;
    for (int i = 0; i < 1000; ++i)
        closed += "</a>";
    EXPECT_EQ(tagsOf(closed).size(), 2000U);
    EXPECT_THROW(tagsOf(xml + "<a>"), BadXml);
}

TEST(XmlScanner, AnswersWholeElementsAndTheirChildren) {
    XmlScanner scanner("<a><b><b/></b><c/><d>x</d></a>");
    ASSERT_TRUE(scanner.next());
    std::vector<std::string> children;
    scanner.forEachChild([&] { children.emplace_back(scanner.takeElement()); });
    EXPECT_THAT(children, ElementsAre("<b><b/></b>", "<c/>", "<d>x</d>"));
    EXPECT_FALSE(scanner.next());
}

TEST(XmlAttributes, AreFoundByTheirWholeNames) {
    const std::string_view attributes = " ar='1'\n r = \"A1\" x:r='>\"' b='true' n='-7' bad='7x' empty=''";
    EXPECT_EQ(findAttribute(attributes, "r"), "A1");
    EXPECT_EQ(findAttribute(attributes, "x:r"), ">\"");
    EXPECT_EQ(findAttribute(attributes, "empty"), "");
    EXPECT_EQ(findAttribute(attributes, "A1"), std::nullopt);
    EXPECT_EQ(findNumber(attributes, "n"), -7);
    EXPECT_EQ(findNumber(attributes, "bad"), std::nullopt);
    EXPECT_EQ(findNumber(attributes, "empty"), std::nullopt);
    EXPECT_TRUE(isSet(attributes, "b"));
    EXPECT_TRUE(isSet(attributes, "ar"));
    EXPECT_FALSE(isSet(attributes, "n"));
}

TEST(XmlTag, KeepsWhatIsNotChanged) {
    XmlTag tag("<x:row  r='1'\n spans = \"1:2\" x14:dy=\"0.2\" />");
    tag.set("spans", "1:9");
    tag.set("ht", "30");
    tag.remove("x14:dy");
    tag.remove("none");
    EXPECT_EQ(tag.emptyTag(), "<x:row  r='1'\n spans = \"1:9\" ht=\"30\"/>");
    EXPECT_EQ(tag.startTag() + tag.endTag(), "<x:row  r='1'\n spans = \"1:9\" ht=\"30\"></x:row>");
    EXPECT_EQ(XmlTag("<c>").emptyTag(), "<c/>");
}

TEST(XmlText, IsDecodedFromWhatAnElementHolds) {
    EXPECT_EQ(decodeXml("a&amp;b&lt;&gt;&quot;&apos;&#65;&#x20AC;"), "a&b<>\"'A€");
    EXPECT_EQ(decodeXml("a<!-- & -->b<![CDATA[&amp;<c>]]>d<?e f?>g"), "ab&amp;<c>dg");
    EXPECT_EQ(decodeXml("a\r\nb\rc&#13;\n<![CDATA[\r\n]]>"), "a\nb\nc\r\n\n");
    EXPECT_EQ(decodeXml("a & b &unknown; &#x; &"), "a & b &unknown; &#x; &");
    EXPECT_EQ(escapeXml("a&b<c>\"d'"), "a&amp;b&lt;c&gt;\"d'");
}

TEST(XmlText, HoldsEveryCharacterThroughEscapes) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"plain _x text_ \t\n", "plain _x text_ \t\n"},
        {std::string("\x01\0\x1F\r", 4), "_x0001__x0000__x001F__x000D_"},
        {"\xEF\xBF\xBE\xEF\xBF\xBF", "_xFFFE__xFFFF_"},
        {"_x0041_", "_x005F_x0041_"},
        {"__x00ff_x0041_", "__x005F_x00ff_x005F_x0041_"},
        {"_x0041\x01", "_x005F_x0041_x0001_"},
        {"_x0041", "_x0041"},
        {"_x004_ _X0041_ _x00G1_", "_x004_ _X0041_ _x00G1_"},
        {"€\U0001F600", "€\U0001F600"},
    };
    for (const auto& [text, written] : cases) {
        EXPECT_EQ(encodeXstring(text), written);
        EXPECT_EQ(decodeXstring(written), text);
    }
    EXPECT_EQ(encodeXstring("a\xFF"), "a\xEF\xBF\xBD");
    EXPECT_EQ(decodeXstring("_xD83D__xDE00_"), "\U0001F600");
}

}  // namespace
}  // namespace mergeloom::embedded
