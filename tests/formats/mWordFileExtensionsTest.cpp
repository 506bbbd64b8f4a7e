#include "formats/Families.h"
#include "office/formats/mWordFileExtensions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace mergeloom {
namespace {

constexpr auto kDocument = OfficeDocumentType::Document;
constexpr auto kTemplate = OfficeDocumentType::Template;

TEST(WordFileExtensions, DescribeAFormat) {
    const struct {
        int format;
        std::string name, extension, filter;
        OfficeDocumentType type;
    } cases[] = {
        {0, "Word 97-2003 Document", "doc", "*.doc", kDocument},
        {1, "Word Template", "dot", "*.dot", kTemplate},
        {7, "Unicode Text", "txt", "*.txt", kDocument},
        {8, "Web Page", "htm", "*.htm;*.html", kDocument},
        {9, "Single File Web Page", "mht", "*.mht;*.mhtml", kDocument},
        {11, "Word 2003 XML Document", "xml", "*.xml", kDocument},
        {12, "Word Document", "docx", "*.docx", kDocument},
        {14, "XML Template", "dotx", "*.dotx", kTemplate},
        {15, "XML Template Macro Enabled", "dotm", "*.dotm", kTemplate},
        {18, "XPS Document", "xps", "*.xps", kDocument},
        {20, "Word XML Document Macro Enabled", "", "*.", kDocument},
        {22, "Word XML Template Macro Enabled", "", "*.", kTemplate},
        {23, "OpenDocument Text", "odt", "*.odt", kDocument},
    };
    for (const auto& [format, name, extension, filter, type] : cases) {
        SCOPED_TRACE(format);
        EXPECT_EQ(formatName(kWord, format), name);
        EXPECT_EQ(wordExtension(format), extension);
        EXPECT_EQ(wordExtension(format, LeadingDot::With), extension.empty() ? "" : "." + extension);
        EXPECT_EQ(extensionFilter(wordExtension(format)), filter);
        EXPECT_EQ(officeDocumentType(kWord, format), type);
    }
}

TEST(WordFileExtensions, KnowNoFormatOutsideTheEnumeration) {
    for (const int format : {-1, 24, 100}) {
        SCOPED_TRACE(format);
        EXPECT_EQ(formatName(kWord, format), "");
        EXPECT_EQ(wordExtension(format, LeadingDot::With), "");
        try {
            officeDocumentType(kWord, format);
            FAIL() << "a kind was found";
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), 30000U);
            EXPECT_EQ(error.description(), "unknown WordOfficeDocumentType " + std::to_string(format));
        }
    }
}

TEST(WordFileExtensions, OfferFormatsInOrder) {
    std::vector<int> numbers;
    for (const FileFormat& format : offeredFormats(kWord))
        numbers.push_back(format.number);
    EXPECT_THAT(numbers, testing::ElementsAre(12, 13, 0, 14, 15, 1, 17, 18, 9, 8, 10, 6, 2, 3, 19, 11, 23));
}

TEST(WordFileExtensions, FindTheFormatOfAnExtension) {
    const struct {
        std::string extension;
        int format;
    } cases[] = {
        {"docx", 12}, {"docm", 13}, {"dotx", 14}, {"dotm", 15}, {"doc", 0}, {"dot", 1},
        {"htm", 8},   {"html", 8},  {"mht", 9},   {"mhtml", 9}, {"txt", 2}, {"xml", 19},
        {"odt", 23},  {"DOCX", 0},  {".docx", 0}, {"xyz", 0},   {"", 0},
    };
    for (const auto& [extension, format] : cases) {
        EXPECT_EQ(wordFormatByExtension(extension), format) << extension;
        EXPECT_EQ(isWordExtension(extension), format != 0 || extension == "doc") << extension;
    }
}

TEST(WordFileExtensions, FollowTheDefaultSaveFormat) {
    const struct {
        std::string option;
        int version, format;
        std::string extension;
    } cases[] = {
        {"Rtf", 16, 6, "rtf"},
        {"Doc", 16, 0, "doc"},
        {"MacroEnabledDocument", 12, 13, "docm"},
        {"Template (dotx)", 12, 14, "dotx"},
        {"MacroEnabledTemplate (dotm)", 12, 15, "dotm"},
        {"Dot", 12, 1, "dot"},
        {"ODT", 14, 23, "odt"},
        {"WebArchive", 14, 9, "mht"},
        {"Html", 14, 8, "htm"},
        {"ReducedHtml", 14, 10, "htm"},
        {"Text", 14, 2, "txt"},
        {"FlatXML", 14, 19, "xml"},
        {"XML", 11, 11, "xml"},
        {"", 12, 12, "docx"},
        {"", 11, 0, "doc"},
        {"rtf", 16, 12, "docx"},
    };
    for (const auto& [option, version, format, extension] : cases) {
        SCOPED_TRACE(option);
        EXPECT_EQ(wordDefaultSaveFormat(option, version), format);
        EXPECT_EQ(wordExtension(kWordDefaultFormat, LeadingDot::Without, format), extension);
    }
}

}  // namespace
}  // namespace mergeloom
