#include "RecordingErrorHandler.h"
#include "xml/StructureDocument.h"
#include "xml/modMSXMLHelper.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

struct Search {
    const char* xml;
    const char* element;
    const char* attribute;
    const char* value;
    bool childrenOnly;
    const char* foundId;  ///< the id attribute of what is found, empty for none
};

class SearchNode : public testing::TestWithParam<Search> {};

TEST_P(SearchNode, FindsTheFirstInDocumentOrder) {
    const Search& search = GetParam();
    StructureDocument document;
    ASSERT_TRUE(document.loadXML(search.xml)) << document.parseError().reason;
    RecordingErrorHandler errors;
    const XmlNode found = SearchNodeNotCaseSensitive(errors, document.documentElement(), search.element,
                                                     search.attribute, search.value, search.childrenOnly);
    EXPECT_EQ(GetAttributeValue(found, "id"), search.foundId) << search.xml;
    EXPECT_TRUE(errors.reports.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SearchNode,
    testing::Values(
        Search{"<r><tAbLe id='1'/></r>", "TABLE", "", "", false, "1"},
        Search{"<table id='0'><x/></table>", "Table", "", "", false, ""},
        Search{"<r><TABL\xC3\x89 id='1'/></r>", "TABL\xC3\x89", "", "", false, ""},
        Search{"<r><TABL\xC3\xA9 id='1'/></r>", "tabl\xC3\xA9", "", "", false, "1"},
        Search{"<r><a><Form id='deep'/></a><Form id='child'/></r>", "form", "", "", false, "deep"},
        Search{"<r><a><Form id='deep'/></a><Form id='child'/></r>", "form", "", "", true, "child"},
        Search{"<r xmlns:p='u'><p:Form id='1'/></r>", "form", "", "", false, "1"},
        Search{"<r><c/><c NAME='x' id='2'/></r>", "c", "name", "", false, "2"},
        Search{"<r><c Name='X' id='1'/><c nAme='x' id='2'/></r>", "C", "Name", "x", false, "2"},
        Search{"<r><c Name='a' id='1'/><c Name=\"O'Brien\" id='2'/></r>", "c", "Name", "O'Brien", false, "2"},
        Search{"<r><c Name='a' id='1'/><c Name='a\"b' id='2'/></r>", "c", "Name", "a\"b", false, "2"},
        Search{"<r><c Name=\"'&quot;\" id='1'/><c Name=\"'\" id='2'/></r>", "c", "Name", "'\"", false, "2"},
        Search{"<r><c Name='a' id='1'/></r>", "c", "", "b", false, "1"}));

TEST(SearchNodeNotCaseSensitive, NoneIsFoundBelowNone) {
    RecordingErrorHandler errors;
    EXPECT_FALSE(SearchNodeNotCaseSensitive(errors, XmlNode(), "Form"));
    EXPECT_TRUE(errors.reports.empty());
}

// A name with an apostrophe cannot be part of the expression, which is reported.
TEST(SearchNodeNotCaseSensitive, ReportsAnExpressionThatDoesNotParse) {
    StructureDocument document;
    ASSERT_TRUE(document.loadXML("<r><a/></r>"));
    RecordingErrorHandler errors;
    EXPECT_FALSE(SearchNodeNotCaseSensitive(errors, document.documentElement(), "a'b"));
    ASSERT_EQ(errors.reports.size(), 1U);
    EXPECT_EQ(errors.reports[0].module, "modMSXMLHelper");
    EXPECT_EQ(errors.reports[0].procedure, "SearchNodeNotCaseSensitive");
    EXPECT_NE(errors.reports[0].description, "");
}

TEST(GetControlCaption, PrefersTheCaption) {
    struct {
        const char* xml;
        const char* caption;
    } const cases[] = {
        {"<c Caption='&amp;Customer' Name='CustomerID'/>", "Customer"},
        {"<c Name='CustomerID'/>", "CustomerID"},
        {"<c Caption='' Name='CustomerID'/>", ""},
        {"<c caption='Customer' name='CustomerID'/>", ""},
        {"<c Name='A&amp;B'/>", "A&B"},
    };
    RecordingErrorHandler errors;
    for (const auto& c : cases) {
        StructureDocument document;
        ASSERT_TRUE(document.loadXML(c.xml));
        EXPECT_EQ(GetControlCaption(errors, document.documentElement()), c.caption) << c.xml;
    }
    EXPECT_EQ(GetControlCaption(errors, XmlNode()), "");
    EXPECT_EQ(GetAttributeValue(XmlNode(), "Name"), "");
    EXPECT_TRUE(errors.reports.empty());
}

TEST(StripAmpersands, ResolvesAccelerators) {
    struct {
        const char* text;
        const char* stripped;
    } const cases[] = {
        {"&Name", "Name"}, {"A && B", "A & B"}, {"Save&", "Save"},          {"&&&Co", "&Co"}, {"&&&&", "&&"},
        {"", ""},          {"&", ""},           {"\xC3\x96&l", "\xC3\x96l"}};
    for (const auto& c : cases)
        EXPECT_EQ(StripAmpersands(c.text), c.stripped) << c.text;
}

}  // namespace
}  // namespace mergeloom
