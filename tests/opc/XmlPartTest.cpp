#include "base/Text.h"
#include "office/opc/XmlPart.h"
#include "opc/ZipBuilder.h"

#include <gtest/gtest.h>

namespace mergeloom::opc {
namespace {

TEST(XmlPart, isWrittenAsUtf8WhateverItWasReadFrom) {
    const std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-16\"?><a>\u00FC\u20AC</a>";
    std::string utf16 = "\xFF\xFE";
    for (std::string_view rest = xml; !rest.empty();) {
        const char32_t unit = takeCodePoint(rest);
        utf16 += {static_cast<char>(unit & 0xFFU), static_cast<char>(unit >> 8U)};
    }
    const auto part = XmlPart::parse(utf16, "/word/document.xml", "test.docx");
    EXPECT_EQ(part->toXml(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\u00FC\u20AC</a>");
}

TEST(XmlPart, refusesWhatItCannotKeep) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"<a>", "is not well-formed XML"},
        {"<a/><b/>", "is not well-formed XML"},
        {"text", "is not well-formed XML"},
        {"", "is not well-formed XML"},
        {"<!DOCTYPE a [<!ENTITY e \"x\">]><a>&e;</a>", "document type"},
        {replaceAll(std::string(1500, 'a'), "a", "<a>") + replaceAll(std::string(1500, 'a'), "a", "</a>"),
         "too deep"},
    };
    for (const auto& [xml, why] : cases) {
        const std::string error =
            errorOf([&, source = xml] { XmlPart::parse(source, "/word/document.xml", "f.docx"); });
        EXPECT_NE(error.find(why), std::string::npos) << xml.substr(0, 40) << ": " << error;
    }
}

}  // namespace
}  // namespace mergeloom::opc
