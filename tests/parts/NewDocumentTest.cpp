#include "office/embedded/parts/NewDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <pugixml.hpp>
#include <set>
#include <string_view>

namespace mergeloom::embedded {
namespace {

pugi::xml_document parsed(const std::string& partName) {
    pugi::xml_document document;
    for (const InitialPart& part : newDocumentParts()) {
        if (part.name == partName) document.load_string(part.xml.c_str());
    }
    return document;
}

std::string value(pugi::xml_node style, const char* element) {
    return style.child(element).attribute("w:val").value();
}

std::map<std::string, pugi::xml_node> stylesById(const pugi::xml_document& document) {
    std::map<std::string, pugi::xml_node> styles;
    for (const pugi::xml_node style : document.child("w:styles").children("w:style")) {
        const bool isNew = styles.emplace(style.attribute("w:styleId").value(), style).second;
        EXPECT_TRUE(isNew) << style.attribute("w:styleId").value();
    }
    return styles;
}

/// Returns true if the children of an element are in the order of the schema's sequence.
bool followsSequence(pugi::xml_node element, const std::vector<std::string_view>& sequence) {
    auto next = sequence.begin();
    for (const pugi::xml_node child : element.children()) {
        next = std::find(next, sequence.end(), std::string_view(child.name()));
        if (next == sequence.end()) return false;
    }
    return true;
}

TEST(NewDocument, PartsAreWellFormedAndHangTogether) {
    const std::vector<InitialPart> parts = newDocumentParts();
    ASSERT_FALSE(parts.empty());
    EXPECT_EQ(parts.front().name, "/word/document.xml");
    std::set<std::string> known{"/"};
    for (const InitialPart& part : parts) {
        SCOPED_TRACE(part.name);
        pugi::xml_document document;
        EXPECT_TRUE(document.load_string(part.xml.c_str()));
        EXPECT_TRUE(known.contains(part.source));
        EXPECT_TRUE(known.insert(part.name).second);
        EXPECT_THAT(part.contentType, testing::AllOf(testing::StartsWith("application/vnd.openxmlformats-"),
                                                     testing::EndsWith("+xml")));
        EXPECT_THAT(part.relationshipType, testing::StartsWith("http://schemas.openxmlformats.org/"));
    }
}

TEST(NewDocument, BodyIsOneEmptyParagraphWithoutText) {
    const pugi::xml_document document = parsed("/word/document.xml");
    const pugi::xml_node body = document.child("w:document").child("w:body");
    std::vector<std::string> children;
    for (const pugi::xml_node child : body.children()) {
        children.emplace_back(child.name());
    }
    EXPECT_THAT(children, testing::ElementsAre("w:p", "w:sectPr"));
    EXPECT_TRUE(body.child("w:p").first_child().empty());
}

TEST(NewDocument, OffersTheStylesThatUsersExpect) {
    const pugi::xml_document document = parsed("/word/styles.xml");
    const auto styles = stylesById(document);
    const struct {
        std::string id, name, type;
    } cases[] = {
        {"Normal", "Normal", "paragraph"},
        {"Heading1", "heading 1", "paragraph"},
        {"Heading9", "heading 9", "paragraph"},
        {"Heading9Char", "heading 9 Char", "character"},
        {"DefaultParagraphFont", "Default Paragraph Font", "character"},
        {"TableNormal", "Normal Table", "table"},
        {"TableGrid", "Table Grid", "table"},
        {"NoList", "No List", "numbering"},
        {"Title", "Title", "paragraph"},
        {"Header", "header", "paragraph"},
        {"Footer", "footer", "paragraph"},
        {"Caption", "caption", "paragraph"},
        {"ListParagraph", "List Paragraph", "paragraph"},
        {"Hyperlink", "Hyperlink", "character"},
    };
    for (const auto& [id, name, type] : cases) {
        ASSERT_TRUE(styles.contains(id)) << id;
        EXPECT_EQ(value(styles.at(id), "w:name"), name);
        EXPECT_EQ(styles.at(id).attribute("w:type").value(), type) << id;
    }
    EXPECT_EQ(value(styles.at("Heading3").child("w:pPr"), "w:outlineLvl"), "2");
}

TEST(NewDocument, StylesReferToOneAnotherWithinTheirType) {
    const pugi::xml_document document = parsed("/word/styles.xml");
    const auto styles = stylesById(document);
    std::map<std::string, int> defaults;
    for (const auto& [id, style] : styles) {
        SCOPED_TRACE(id);
        const std::string type = style.attribute("w:type").value();
        defaults[type] += style.attribute("w:default").as_int();
        for (const char* reference : {"w:basedOn", "w:next"}) {
            const std::string target = value(style, reference);
            if (target.empty()) continue;
            ASSERT_TRUE(styles.contains(target));
            EXPECT_EQ(styles.at(target).attribute("w:type").value(), type);
        }
        const std::string link = value(style, "w:link");
        if (link.empty()) continue;
        ASSERT_TRUE(styles.contains(link));
        EXPECT_EQ(value(styles.at(link), "w:link"), id);
    }
    EXPECT_THAT(defaults, testing::ElementsAre(testing::Pair("character", 1), testing::Pair("numbering", 1),
                                               testing::Pair("paragraph", 1), testing::Pair("table", 1)));
}

TEST(NewDocument, StylesFollowTheSchemasOrder) {
    const pugi::xml_document document = parsed("/word/styles.xml");
    for (const auto& [id, style] : stylesById(document)) {
        EXPECT_TRUE(
            followsSequence(style, {"w:name", "w:basedOn", "w:next", "w:link", "w:uiPriority", "w:semiHidden",
                                    "w:unhideWhenUsed", "w:qFormat", "w:pPr", "w:rPr", "w:tblPr"}))
            << id;
        EXPECT_TRUE(followsSequence(style.child("w:pPr"), {"w:keepNext", "w:keepLines", "w:tabs", "w:spacing",
                                                           "w:ind", "w:contextualSpacing", "w:outlineLvl"}))
            << id;
        EXPECT_TRUE(
            followsSequence(style.child("w:rPr"), {"w:rFonts", "w:b", "w:bCs", "w:i", "w:iCs", "w:color",
                                                   "w:spacing", "w:kern", "w:sz", "w:szCs", "w:u"}))
            << id;
    }
}

}  // namespace
}  // namespace mergeloom::embedded
