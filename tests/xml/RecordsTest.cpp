#include "base/AutomationError.h"
#include "doubles/TemporaryFolder.h"
#include "xml/StructureDocument.h"

#include <gtest/gtest.h>

#include <pugixml.hpp>
#include <sstream>
#include <string>
#include <vector>

namespace mergeloom {
namespace {

std::string shown(const Record& record) {
    std::string text;
    for (const RecordControl& control : record.controls) {
        text += control.name + "=" + control.displayValue + "|" + control.boundValue + "|" +
                control.richText + "|" + control.plainText + "|" + control.image;
        for (const Record& row : control.records)
            text += "{" + shown(row) + "}";
        text += ";";
    }
    return text;
}

class Records : public testing::Test {
  protected:
    std::string write(const std::string& xml) {
        folder_.put("records.xml", xml);
        return folder_ / "records.xml";
    }
    /// Loads a document with these data and returns its records.
    std::vector<std::string> recordsOf(const std::string& data) {
        std::vector<std::string> records;
        const std::string path = write("<db><Form Name='F'/>" + data + "<Table Name='T'/></db>");
        EXPECT_TRUE(document_.Load(path, [&](Record& record) { records.push_back(shown(record)); }))
            << document_.parseError().reason;
        return records;
    }

    TemporaryFolder folder_;
    StructureDocument document_;
};

/// A tree with the data, as without a receiver of records.
TEST_F(Records, AreHandedOverBesideDataThatAreKept) {
    const std::string path = write(
        "<db><Data><Record><Control Name='A'><DisplayValue>x<!-- y "
        "--></DisplayValue><BoundValue><![CDATA[1]]>"
        "</BoundValue></Control></Record></Data><Data><Record/></Data><Form Name='F'/></db>");
    const auto xmlOfTree = [this] {
        std::ostringstream xml;
        pugi::xml_node(document_.documentElement().handle()).print(xml);
        return xml.str();
    };
    ASSERT_TRUE(document_.Load(path));
    const std::string expected = xmlOfTree();
    std::vector<std::string> records;
    const auto take = [&](Record& record) { records.push_back(shown(record)); };
    ASSERT_TRUE(document_.Load(path, take, DataUse::Kept));
    EXPECT_EQ(xmlOfTree(), expected);
    EXPECT_EQ(records, std::vector<std::string>{"A=x|1|||;"});
}

TEST_F(Records, AreReadByTheirElements) {
    struct Case {
        std::string data;
        std::vector<std::string> expected;
    };
    const std::string wrapped = "<Data><Records>";
    const std::vector<Case> cases{
        {wrapped +
             "<Record><Control Name='A'><DisplayValue> x </DisplayValue><BoundValue>1</BoundValue></Control>"
             "</Record><Record/></Records></Data>",
         {"A= x |1|||;", ""}},
        {"<DATA><record><control name='A' "
         "image='p.png'><displayvalue>x</displayvalue></control></record></DATA>",
         {"A=x||||p.png;"}},
        {"<Data><Record><Page><Control Name='A'><Image>q.png</Image></Control></Page></Record></Data>",
         {"A=||||q.png;"}},
        {"<Data><Record><Control Name='A'><DisplayValue> <RichText><![CDATA[<b>x</b>]]></RichText>\n"
         "<PlainText>x</PlainText> </DisplayValue></Control></Record></Data>",
         {"A=||<b>x</b>|x|;"}},
        {"<Data><Record><Control Name='A'><RichText>a<font color='red'>b<br/></font></RichText></Control>"
         "</Record></Data>",
         {"A=||a<font color=\"red\">b<br></br></font>||;"}},
        {"<Data><Record><Control Name='S'><Records><Record><Control Name='B'><DisplayValue>1</DisplayValue>"
         "</Control></Record><Record/></Records></Control><Control Name='C'/></Record></Data>",
         {"S=||||{B=1||||;}{};C=||||;"}},
        {"<Data><Record><Control Name='A'><DisplayValue>Price <b>1<i>2</i></b> EUR</DisplayValue></Control>"
         "</Record></Data>",
         {"A=Price 12 EUR||||;"}},
        {"<Data><Record><Control Name='A'/><Control Name='B'/><Control Name='A' Image='x'/></Record></Data>",
         {"A=||||;B=||||;"}},
        {"<Data><Control Name='A'/></Data><Data><Record/></Data>", {}},
        {"<x><Data><Record/></Data></x><Data><Record/><Record/></Data>", {""}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(recordsOf(c.data), c.expected) << c.data;
}

TEST_F(Records, AreNoPartOfTheTree) {
    recordsOf("<Data><Record><Control Name='A'/></Record></Data>");
    const XmlNode data = document_.documentElement().firstChild().nextSibling();
    EXPECT_EQ(data.nodeName(), "Data");
    EXPECT_FALSE(data.firstChild());
    EXPECT_EQ(data.nextSibling().nodeName(), "Table");
}

TEST_F(Records, ErrorsInDataAndErrorsOfTheReceiver) {
    const std::string deep = [] {
        std::string xml = "<db><Data>";
        for (int i = 0; i < 300; ++i)
            xml += "<x>";
        return xml;
    }();
    int records = 0;
    const RecordHandler count = [&](Record&) { ++records; };
    EXPECT_FALSE(document_.Load(write(deep), count));
    EXPECT_TRUE(document_.parseError().reason.find("nested more than") != std::string::npos);
    EXPECT_FALSE(document_.Load(write("<db><Data>\n<Record/><Record></Data></db>"), count));
    EXPECT_TRUE(document_.parseError().reason.find("line 2") != std::string::npos);
    EXPECT_EQ(records, 1);
    const RecordHandler failing = [](Record&) { throw AutomationError(kNotAvailable, "full"); };
    EXPECT_THROW(document_.Load(write("<db><Data><Record/></Data></db>"), failing), AutomationError);
}

}  // namespace
}  // namespace mergeloom
