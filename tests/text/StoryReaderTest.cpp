#include "text/StoryTest.h"

#include <gtest/gtest.h>

namespace mergeloom::embedded {
namespace {

using std::string;

const string kStrict = "http://purl.oclc.org/ooxml/wordprocessingml/main";

string bookmark(const string& id, const string& name) {
    return "<w:bookmarkStart w:id=\"" + id + "\" w:name=\"" + name + "\"/>";
}
string end(const string& id) {
    return "<w:bookmarkEnd w:id=\"" + id + "\"/>";
}

TEST(StoryReader, readsHoweverThePartNamesItsElements) {
    for (const string& uri : {kWordNamespace, kStrict}) {
        const auto body = [&](const string& e, const string& a) {
            return "<" + e + "body><" + e + "p><" + e + "bookmarkStart " + a + "id=\"1\" " + a +
                   "name=\"A\"/><" + e + "r><" + e + "t>a</" + e + "t></" + e + "r><" + e + "bookmarkEnd " +
                   a + "id=\"1\"/></" + e + "p></" + e + "body>";
        };
        const std::vector<string> parts = {
            "<w:document xmlns:w=\"" + uri + "\">" + body("w:", "w:") + "</w:document>",
            "<ns0:document xmlns:ns0=\"" + uri + "\">" + body("ns0:", "ns0:") + "</ns0:document>",
            "<document xmlns=\"" + uri + "\" xmlns:x=\"" + uri + "\">" + body("", "x:") + "</document>",
        };
        for (const string& xml : parts) {
            OpenPart part(xml);
            EXPECT_EQ(itemsOf(part.body().story), "[A 'a' A] P") << xml;
            part.add("B", 0, 0);
            part.body().insert(1, "\r");
            EXPECT_EQ(itemsOf(OpenPart(part.part->toXml()).body().story), "[A [B B] 'a' A] P P") << xml;
            EXPECT_EQ(part.names.isStrict(), uri == kStrict);
        }
    }
}

TEST(StoryReader, readsWhatProgramsWrite) {
    struct Case {
        const char* what;
        string body;
        const char* items;
    };
    const string text = "<w:r><w:t>a</w:t></w:r>";
    const std::vector<Case> cases = {
        {"a printed layout", "\n <w:p>\n  <w:r>\n   <w:t>a</w:t>\n  </w:r>\n </w:p>\n", "'a' P"},
        {"a story that ends with a table", "<w:tbl><w:tr><w:tc><w:p/></w:tc></w:tr></w:tbl>", "P R P"},
        {"a story without a paragraph", "<w:sectPr/>", "P"},
        {"text in pieces",
         "<w:p><w:r><w:t>a<!-- c -->b<![CDATA[<]]></w:t><w:t/><w:t><!-- --></w:t></w:r></w:p>", "'ab<' P"},
        {"alternatives in a paragraph",
         "<w:p><mc:AlternateContent><mc:Choice>" + text + "</mc:Choice><mc:Fallback>" + text +
             "</mc:Fallback></mc:AlternateContent></w:p>",
         "'a' P"},
        {"what floats and what stands in the text",
         "<w:p><w:r><w:drawing><wp:anchor/></w:drawing></w:r><w:r><w:drawing><wp:inline/></w:drawing></"
         "w:r><w:r>"
         "<w:pict><v:shape "
         "style=\"position:absolute\"/></w:pict></w:r><w:r><w:pict><v:shape/></w:pict></w:r></w:p>",
         "anchor object anchor object P"},
        {"a printed layout of alternatives",
         "<w:p><w:r><mc:AlternateContent>\n<mc:Choice>\n<w:drawing>\n<wp:anchor/></w:drawing></mc:Choice>"
         "</mc:AlternateContent></w:r></w:p>",
         "anchor P"},
        {"changes and elements of others",
         "<w:p><w:ins>" + text + "</w:ins><w:del><w:r><w:delText>b</w:delText></w:r></w:del><w:proofErr/>" +
             "<x:new xmlns:x=\"x\">" + text + "</x:new></w:p>",
         "'a' 'b' P"},
        {"marks without a counterpart",
         "<w:p>" + bookmark("1", "A") + end("2") + text + end("1") + end("1") + bookmark("3", "C") + "</w:p>",
         "[A 'a' A] P"},
        {"an end before its start", "<w:p>" + end("1") + text + bookmark("1", "A") + "</w:p>", "'a' P"},
        {"a name twice",
         "<w:p>" + bookmark("1", "A") + end("1") + text + bookmark("2", "a") + end("2") + "</w:p>",
         "[A A] 'a' P"},
        {"an id twice, one after the other",
         "<w:p>" + bookmark("1", "A") + end("1") + bookmark("1", "B") + text + end("1") + "</w:p>",
         "[A A] [B 'a' B] P"},
        {"an id twice, one in the other",
         "<w:p>" + bookmark("1", "A") + bookmark("1", "B") + text + end("1") + end("1") + "</w:p>",
         "[A 'a' A] P"},
        {"no name and no number",
         "<w:p>" + bookmark("x", "A") + bookmark("2", "") + text + end("2") + end("x") + "</w:p>",
         "[A 'a' A] P"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(itemsOf(OpenBody(c.body).body().story), c.items) << c.what;
}

TEST(StoryReader, keepsCommentsThatSplitAText) {
    OpenBody part("<w:p><w:r><w:t><!-- c -->a<!-- d --><![CDATA[<]]></w:t></w:r></w:p>");
    part.body().insert(1, "x");
    EXPECT_EQ(part.bodyXml(), "<w:p><w:r><w:t>ax&lt;<!-- c --><!-- d --></w:t></w:r></w:p>");
}

}  // namespace
}  // namespace mergeloom::embedded
