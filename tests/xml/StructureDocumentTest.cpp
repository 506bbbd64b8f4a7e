#include "base/Paths.h"
#include "base/Text.h"
#include "xml/StructureDocument.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace mergeloom {
namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

/// A folder of the test's own, removed when the test ends.
class StructureDocumentFile : public testing::Test {
  protected:
    StructureDocumentFile() {
        folder_ =
            testing::TempDir() + "structure." + testing::UnitTest::GetInstance()->current_test_info()->name();
        std::filesystem::create_directories(folder_);
        CaptureStderr();
    }
    ~StructureDocumentFile() override {
        EXPECT_EQ(GetCapturedStderr(), "");
        std::filesystem::remove_all(folder_);
    }

    std::string write(const std::string& name, std::string_view bytes) {
        std::ofstream(folder_ + "/" + name, std::ios::binary) << bytes;
        return folder_ + "/" + name;
    }

    /// Loads a file that must be refused and returns the reason.
    std::string refusal(const std::string& path) {
        EXPECT_FALSE(document_.Load(path)) << path;
        EXPECT_FALSE(document_.documentElement());
        return document_.parseError().reason;
    }
    std::string refusalOf(std::string_view bytes) { return refusal(write("bad.xml", bytes)); }

    std::string prefix(int line) {
        return "The structure document '" + folder_ + "/bad.xml' could not be read, line " +
               std::to_string(line) + ": ";
    }

    std::string folder_;
    StructureDocument document_;
};

std::string manyLevels(int levels) {
    std::string xml;
    for (int i = 0; i < levels; ++i)
        xml += "<a>\n";
    for (int i = 0; i < levels; ++i)
        xml += "</a>";
    return xml;
}

TEST_F(StructureDocumentFile, NamesFileLineAndReason) {
    EXPECT_EQ(refusalOf(""), prefix(1) + "Document is empty.");
    EXPECT_EQ(refusalOf("<a>\n <b>\n</a>"), prefix(3) + "Opening and ending tag mismatch: b line 2 and a.");
    EXPECT_EQ(document_.parseError().line, 3);
    EXPECT_EQ(refusalOf("<a>\n<b>").find(prefix(2) + "Premature end of data in tag b"), 0U);
    EXPECT_EQ(refusalOf("no xml").find(prefix(1) + "Start tag expected"), 0U);
    EXPECT_EQ(refusalOf("<a/>\n<b/>").find(prefix(2) + "Extra content"), 0U);
    EXPECT_EQ(refusalOf("<a x='1' x='2'/>"), prefix(1) + "Attribute x redefined.");
    EXPECT_EQ(refusalOf("<a>\n<p:b/></a>"), prefix(2) + "Namespace prefix p on b is not defined.");
    EXPECT_EQ(refusalOf("<a>&unknown;</a>"), prefix(1) + "Entity 'unknown' not defined.");
    EXPECT_NE(refusalOf("<?xml version='1.0' encoding='nonsense'?><a/>").find("nsupported encoding nonsense"),
              std::string::npos);
    EXPECT_NE(refusalOf("<?xml version='1.0' encoding='windows-1252'?><a>\x81</a>"), "");
    EXPECT_NE(refusalOf("<a>\xE9</a>"), "");
    EXPECT_NE(refusalOf(std::string_view("<a>\0</a>", 8)), "");
}

TEST_F(StructureDocumentFile, TellsWhatCannotBeRead) {
    EXPECT_EQ(refusal(folder_ + "/none.xml"),
              "The file '" + folder_ + "/none.xml' could not be read: it does not exist.");
    EXPECT_EQ(refusal(folder_), "The file '" + folder_ + "' could not be read: it is a folder.");
}

TEST_F(StructureDocumentFile, ForgetsWhatWasLoadedBefore) {
    ASSERT_TRUE(document_.Load(write("good.xml", "<good/>")));
    EXPECT_EQ(document_.documentElement().nodeName(), "good");
    refusalOf("<good><bad></good>");
    ASSERT_TRUE(document_.loadXML("<again/>"));
    EXPECT_EQ(document_.documentElement().nodeName(), "again");
    EXPECT_EQ(document_.parseError().reason, "");
}

TEST_F(StructureDocumentFile, RefusesEntityBombs) {
    std::string nested = "<!DOCTYPE a [<!ENTITY e0 'ha'>";
    for (int i = 1; i < 30; ++i) {
        const std::string inner = "&e" + std::to_string(i - 1) + ";";
        nested.append("<!ENTITY e").append(std::to_string(i)).append(" '");
        for (int times = 0; times < 4; ++times)
            nested += inner;
        nested += "'>";
    }
    const std::string refused = prefix(1) + "Entities expand to more than 10 times the document's size.";
    EXPECT_EQ(refusalOf(nested + "]><a>&e29;</a>"), refused);
    EXPECT_EQ(refusalOf(nested + "]><a x='&e29;'/>"), refused);
    nested.replace(nested.find("'ha'"), 4, "''");
    EXPECT_EQ(refusalOf(nested + "]><a>&e29;</a>"), refused);
    EXPECT_EQ(refusalOf(nested + "]><a x='&e29;'/>"), refused);

    std::string wide = "<!DOCTYPE a [<!ENTITY e '" + std::string(100000, 'x') + "'>]><a>";
    for (int i = 0; i < 10000; ++i)
        wide += "&e;";
    EXPECT_EQ(refusalOf(wide + "</a>"), refused);
    std::string attribute = wide.substr(0, wide.find("<a>")) + "<a x='";
    for (int i = 0; i < 10000; ++i)
        attribute += "&e;";
    EXPECT_EQ(refusalOf(attribute + "'/>"), refused);

    for (const char* use : {"<a>&e;</a>", "<a x='&f;'/>"}) {
        const std::string loops =
            "<!DOCTYPE a [<!ENTITY e '<b>&e;</b>'><!ENTITY f '&g;&g;'><!ENTITY g '&f;&f;'>]>";
        EXPECT_NE(refusalOf(loops + use), "") << use;
    }
}

TEST_F(StructureDocumentFile, ReplacesSmallEntitiesOfItsOwn) {
    ASSERT_TRUE(
        document_.loadXML("<!DOCTYPE a [<!ENTITY firm 'Smith &#38;amp; Co'><!ENTITY el '<b/>'>]>"
                          "<a x='&firm;'>to &firm; <c/>&el;&el;</a>"));
    const XmlNode root = document_.documentElement();
    EXPECT_EQ(root.namedAttribute("x"), "Smith & Co");
    EXPECT_EQ(root.firstChild().nodeType(), XmlNode::Type::Text);
    const XmlNode last = root.firstChild().nextSibling().nextSibling().nextSibling();
    EXPECT_EQ(last.nodeName(), "b");
    EXPECT_FALSE(last.nextSibling());
}

/// Returns the address of a file: "file:///srv/a.xml", "file:///C:/a.xml".
std::string uriOf(const std::string& path) {
    const std::string slashed = replaceAll(path, "\\", "/");
    return (slashed.starts_with('/') ? "file://" : "file:///") + slashed;
}

TEST_F(StructureDocumentFile, ReadsNoOtherFile) {
    const std::string secret = write("secret.txt", "TOPSECRET");
    write("secret.dtd", "<!ENTITY e 'TOPSECRET'><!ATTLIST a x CDATA 'TOPSECRET'>");
    const std::string declared = "<!DOCTYPE a [<!ENTITY e SYSTEM '" + uriOf(secret) + "'>]>";
    EXPECT_EQ(refusalOf(declared + "<a>\n&e;</a>"), prefix(2) + "The external entity 'e' is not allowed.");
    EXPECT_NE(refusalOf(declared + "<a x='&e;'/>"), "");
    EXPECT_EQ(refusalOf("<!DOCTYPE a [<!ENTITY % e SYSTEM 'secret.dtd'>\n%e;]><a/>"),
              prefix(2) + "The external entity 'e' is not allowed.");

    ASSERT_TRUE(document_.Load(write("outside.xml", "<!DOCTYPE a SYSTEM 'secret.dtd'><a/>")));
    EXPECT_EQ(document_.documentElement().attributeCount(), 0U);
    EXPECT_NE(refusalOf("<!DOCTYPE a SYSTEM 'secret.dtd'><a x='&e;'/>"), "");
}

TEST_F(StructureDocumentFile, ReadsLongTexts) {
    std::string text;
    text.resize(11'000'000, 'x');
    ASSERT_TRUE(document_.loadXML("<a><![CDATA[" + text + "]]></a>")) << document_.parseError().reason;
    ASSERT_TRUE(document_.loadXML("<a><!--" + text + "--></a>")) << document_.parseError().reason;
    ASSERT_TRUE(document_.loadXML("<a>" + text + "</a>")) << document_.parseError().reason;
    ASSERT_TRUE(document_.loadXML("<a x='" + text + "'/>")) << document_.parseError().reason;
    EXPECT_EQ(document_.documentElement().namedAttribute("x"), text);
}

TEST_F(StructureDocumentFile, LimitsDepth) {
    EXPECT_TRUE(document_.loadXML(manyLevels(250)));
    EXPECT_EQ(refusalOf(manyLevels(251)), prefix(251) + "Elements are nested more than 250 levels deep.");
    EXPECT_EQ(refusalOf(manyLevels(5000)), prefix(251) + "Elements are nested more than 250 levels deep.");
}

TEST_F(StructureDocumentFile, ReadsOtherEncodings) {
    const std::string latin = "<?xml version='1.0' encoding='windows-1252'?><a Name='\x80 \xFC'/>";
    ASSERT_TRUE(document_.Load(write("latin.xml", latin))) << document_.parseError().reason;
    EXPECT_EQ(document_.documentElement().namedAttribute("Name"), "\xE2\x82\xAC \xC3\xBC");
    const std::string japanese = "<?xml version='1.0' encoding='Shift_JIS'?><a Name='\x93\xFA\x96\x7B'/>";
    ASSERT_TRUE(document_.Load(write("japanese.xml", japanese))) << document_.parseError().reason;
    EXPECT_EQ(document_.documentElement().namedAttribute("Name"), "日本");
    EXPECT_NE(refusalOf("<?xml version='1.0' encoding='martian'?><a/>"), "");

    std::string wide = "\xFF\xFE";
    for (const char c : std::string_view("<?xml version='1.0' encoding='UTF-16'?><a Name='x'/>")) {
        wide += c;
        wide += '\0';
    }
    ASSERT_TRUE(document_.Load(write("wide.xml", wide))) << document_.parseError().reason;
    EXPECT_EQ(document_.documentElement().namedAttribute("Name"), "x");
}

TEST_F(StructureDocumentFile, FindsPicturesBesideIt) {
    const std::string picture = write("logo.png", "");
    ASSERT_TRUE(document_.Load(write("a.xml", "<a/>")));
    EXPECT_EQ(document_.findPicture("logo.png"), joinPath(parentFolder(picture), "logo.png"));
    EXPECT_EQ(document_.findPicture(picture), fullPath(picture));
    for (const char* none : {"", "none.png", ".", "/none.png"})
        EXPECT_EQ(document_.findPicture(none), "");
}

// Returns the children as text: names of elements, "#text" and others, each followed by a blank.
std::string childrenOf(const char* xml) {
    StructureDocument document;
    EXPECT_TRUE(document.loadXML(xml)) << document.parseError().reason;
    std::string names;
    for (XmlNode child = document.documentElement().firstChild(); child; child = child.nextSibling()) {
        EXPECT_EQ(child.parentNode(), document.documentElement());
        names += std::string(child.nodeName()) + " ";
    }
    return names;
}

TEST(StructureDocument, DropsTextOfNothingButWhiteSpace) {
    EXPECT_EQ(childrenOf("<a>\n \t\r</a>"), "");
    EXPECT_EQ(childrenOf("<a>\n<b/>\n<c/>\n</a>"), "b c ");
    EXPECT_EQ(childrenOf("<a> x <b/> </a>"), "#text b ");
    EXPECT_EQ(childrenOf("<a> <!--x--> </a>"), "#comment ");
    EXPECT_EQ(childrenOf("<a> <![CDATA[ ]]> </a>"), "#cdata-section ");
    EXPECT_EQ(childrenOf("<a> <?do it?> </a>"), "do ");
    EXPECT_EQ(childrenOf("<a>&#32;&#10;</a>"), "");
    EXPECT_EQ(childrenOf("<a>x&amp;y</a>"), "#text ");
    EXPECT_EQ(childrenOf("<a>\xC2\xA0</a>"), "#text ");
    EXPECT_EQ(childrenOf("<!--x--><?y?><a><p:b xmlns:p='u'/></a><!--z-->"), "p:b ");
}

/// Returns an element and its attributes, each of which has a value of its own.
std::string elementOf(const std::vector<std::string>& attributes, const std::string& name, int number) {
    std::string element = "<" + name;
    for (std::size_t i = 0; i < attributes.size(); ++i)
        element += " " + attributes[i] + "='" + std::to_string(number) + "." + std::to_string(i) + "'";
    return element + "/>";
}

std::string written(XmlNode node) {
    std::string element = "<" + std::string(node.nodeName());
    for (std::size_t i = 0; i < node.attributeCount(); ++i) {
        element.append(" ").append(node.attributeName(i)).append("='").append(node.attributeValue(i));
        element += "'";
    }
    return element + "/>";
}

// Elements of the same names are copies of the first one; not all of these are kept.
TEST(StructureDocument, KeepsNamesAndValuesOfEveryElement) {
    std::vector<std::string> elements;
    for (int i = 0; i < 1500; ++i) {
        const std::string own = "own" + std::to_string(i);
        elements.push_back(elementOf({"x", "y"}, "a", i));
        elements.push_back(elementOf({"y", "x"}, "a", i));
        elements.push_back(elementOf({"p:x", "y"}, "a", i));
        elements.push_back(elementOf({"x", "y"}, "p:a", i));
        elements.push_back(elementOf({"x", own}, "a", i));
        elements.push_back(elementOf({}, own, i));
        elements.push_back(elementOf({"x", "y", "\xC3\xA9"}, "a", i));
    }
    std::string xml = "<r xmlns:p='u'>";
    for (const std::string& element : elements)
        xml += element;
    StructureDocument document;
    ASSERT_TRUE(document.loadXML(xml + "</r>")) << document.parseError().reason;
    XmlNode child = document.documentElement().firstChild();
    for (const std::string& element : elements) {
        ASSERT_EQ(written(child), element);
        child = child.nextSibling();
    }
    EXPECT_FALSE(child);
}

}  // namespace
}  // namespace mergeloom
