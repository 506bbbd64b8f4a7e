#include "office/opc/ContentTypes.h"
#include "office/opc/PartName.h"
#include "office/opc/Relationships.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom::opc {
namespace {

using testing::HasSubstr;

const std::string kXml =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?><!--kept--><r:Relationships xmlns:r=\"urn\" x:a=\"1\">"
    "<r:Relationship Id=\"rId1\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/"
    "image\" Target=\"media/a.png\" x:b=\"kept\"/>"
    "<r:Relationship Id=\"rId3\" Type=\"http://purl.oclc.org/ooxml/officeDocument/relationships/image\" "
    "Target=\"http://localhost/a.png\" TargetMode=\"External\"/><x:unknown/></r:Relationships>";

TEST(PartName, resolvesTargets) {
    struct Case {
        const char* source;
        const char* target;
        const char* part;
    };
    const std::vector<Case> cases = {
        {"/word/document.xml", "media/a.png", "/word/media/a.png"},
        {"/word/document.xml", "../customXml/item1.xml", "/customXml/item1.xml"},
        {"/word/document.xml", "/word/media/a.png", "/word/media/a.png"},
        {"/word/document.xml", "./media//a.png", "/word/media/a.png"},
        {"/word/document.xml", "../../../a.xml", "/a.xml"},
        {"/word/document.xml", "media\\a.png", "/word/media/a.png"},
        {"/word/document.xml", "media/a%20b.png#part", "/word/media/a%20b.png"},
        {"/word/document.xml", "#bookmark", "/word/document.xml"},
        {"/", "word/document.xml", "/word/document.xml"},
    };
    for (const Case& one : cases)
        EXPECT_EQ(resolveTarget(one.source, one.target), one.part) << one.target;
    EXPECT_EQ(partKey("/Word/media/A%20B.png"), partKey("word\\Media\\a b.PNG"));
    EXPECT_NE(partKey("/a%2"), partKey("/a"));
}

TEST(PartName, writesTargetsThatResolveBack) {
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"/word/media/a.png", "media/a.png"},
        {"/customXml/item1.xml", "/customXml/item1.xml"},
        {"/word/media/a b#\xC3\xA4.png", "media/a%20b%23%C3%A4.png"},
        {"/word/a:b.png", "/word/a:b.png"},
    };
    for (const auto& [part, target] : cases) {
        EXPECT_EQ(targetFrom("/word/document.xml", part), target);
        EXPECT_EQ(partKey(resolveTarget("/word/document.xml", target)), partKey(part));
    }
}

TEST(Relationships, findsByTypeInBothForms) {
    const Relationships relationships("/word/document.xml", kXml, "f");
    const auto images = relationships.ofOfficeType("image");
    ASSERT_EQ(images.size(), 2U);
    EXPECT_EQ(relationships.targetPart(*images[0]), "/word/media/a.png");
    EXPECT_EQ(images[0]->mode, TargetMode::Internal);
    EXPECT_EQ(images[1]->mode, TargetMode::External);
    EXPECT_EQ(relationships.find("rId2"), nullptr);
}

TEST(Relationships, editsKeepWhatIsUnknown) {
    Relationships relationships("/word/document.xml", kXml, "f");
    EXPECT_FALSE(relationships.isChanged());
    EXPECT_EQ(relationships.toXml(), kXml.substr(0, 30) + "UTF-8" + kXml.substr(35));
    EXPECT_EQ(relationships.addPart("t", "/word/b.xml"), "rId2");
    EXPECT_EQ(relationships.addPart("t", "/word/a&b.xml"), "rId4");
    EXPECT_TRUE(relationships.remove("rId1"));
    EXPECT_FALSE(relationships.remove("rId1"));
    EXPECT_EQ(relationships.find("rId4")->target, "a&b.xml");
    const std::string xml = relationships.toXml();
    EXPECT_THAT(xml, HasSubstr("<!--kept-->"));
    EXPECT_THAT(xml, HasSubstr("<r:Relationship Id=\"rId2\" Type=\"t\" Target=\"b.xml\"/>"));
    EXPECT_THAT(xml, HasSubstr("<x:unknown/>"));
    EXPECT_EQ(relationships.addExternal("t", "http://a/?b&c"), "rId5");
    const Relationships again("/word/document.xml", relationships.toXml(), "f");
    ASSERT_EQ(again.all().size(), 4U);
    EXPECT_EQ(again.all()[2].target, "a&b.xml");
    EXPECT_EQ(again.all()[2].mode, TargetMode::Internal);
    EXPECT_EQ(again.all()[3].target, "http://a/?b&c");
    EXPECT_EQ(again.all()[3].mode, TargetMode::External);
}

TEST(ContentTypes, looksUpIgnoringCase) {
    ContentTypes types(
        "<Types><Default Extension='PNG' ContentType='image/png'/>"
        "<Override PartName='/Word/A.xml' ContentType='a'/><unknown/></Types>",
        "f");
    EXPECT_EQ(types.of("/word/media/x.Png"), "image/png");
    EXPECT_EQ(types.of("/word/a.XML"), "a");
    EXPECT_EQ(types.of("/word/b.xml"), "");
    types.setOverride("/word/a.xml", "a");
    EXPECT_TRUE(types.ensureDefault("png", "image/png"));
    EXPECT_FALSE(types.ensureDefault("png", "image/other"));
    EXPECT_FALSE(types.isChanged());
    types.setOverride("/word/a.xml", "b");
    EXPECT_TRUE(types.ensureDefault("gif", "image/gif"));
    types.setOverride("/word/c.xml", "c");
    types.removeOverride("/WORD/c.xml");
    EXPECT_EQ(types.toXml(),
              "<Types><Default Extension=\"gif\" ContentType=\"image/gif\"/>"
              "<Default Extension=\"PNG\" ContentType=\"image/png\"/>"
              "<Override PartName=\"/Word/A.xml\" ContentType=\"b\"/><unknown/></Types>");
}

}  // namespace
}  // namespace mergeloom::opc
