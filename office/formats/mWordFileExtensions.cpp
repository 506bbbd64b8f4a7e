#include "office/formats/mWordFileExtensions.h"

#include <algorithm>
#include <array>

namespace mergeloom {

namespace {

constexpr auto kDocument = WordOfficeDocumentType::Document;
constexpr auto kTemplate = WordOfficeDocumentType::Template;

struct WordFormat {
    std::string_view name;
    std::string_view extension;
    WordOfficeDocumentType type;
};

/// A format's number is its place here.
constexpr std::array<WordFormat, 24> kFormats{{
    {"Word 97-2003 Document", "doc", kDocument},
    {"Word Template", "dot", kTemplate},
    {"Plain Text", "txt", kDocument},
    {"Text Line Breaks", "txt", kDocument},
    {"DOS Text", "txt", kDocument},
    {"DOS Text Line Breaks", "txt", kDocument},
    {"Rich Text Format", "rtf", kDocument},
    {"Unicode Text", "txt", kDocument},
    {"Web Page", "htm", kDocument},
    {"Single File Web Page", "mht", kDocument},
    {"Web Page, Filtered", "htm", kDocument},
    {"Word 2003 XML Document", "xml", kDocument},
    {"Word Document", "docx", kDocument},
    {"Word Macro-Enabled Document", "docm", kDocument},
    {"XML Template", "dotx", kTemplate},
    {"XML Template Macro Enabled", "dotm", kTemplate},
    {"Document Default", "", kDocument},
    {"PDF", "pdf", kDocument},
    {"XPS Document", "xps", kDocument},
    {"Word XML Document", "xml", kDocument},
    {"Word XML Document Macro Enabled", "", kDocument},
    {"Word XML Template", "", kTemplate},
    {"Word XML Template Macro Enabled", "", kTemplate},
    {"OpenDocument Text", "odt", kDocument},
}};

constexpr std::array kOffered{12, 13, 0, 14, 15, 1, 17, 18, 9, 8, 10, 6, 2, 3, 19, 11, 23};

struct DefaultSaveFormat {
    std::string_view value;
    int format;
};

constexpr std::array<DefaultSaveFormat, 13> kDefaultSaveFormats{{
    {"Doc", 0},
    {"MacroEnabledDocument", 13},
    {"ODT", 23},
    {"Rtf", 6},
    {"Template (dotx)", 14},
    {"MacroEnabledTemplate (dotm)", 15},
    {"Dot", 1},
    {"WebArchive", 9},
    {"Html", 8},
    {"ReducedHtml", 10},
    {"Text", 2},
    {"FlatXML", 19},
    {"XML", 11},
}};

/// The first version that writes the format of number 12.
constexpr int kFirstVersionWithOpenXml = 12;

const WordFormat* findFormat(int format) {
    if (format < 0 || format >= static_cast<int>(kFormats.size())) return nullptr;
    return &kFormats[static_cast<std::size_t>(format)];
}

}  // namespace

std::string wordFormatName(int format) {
    const WordFormat* const found = findFormat(format);
    return found == nullptr ? std::string() : std::string(found->name);
}

std::string wordExtension(int format, LeadingDot dot, int defaultFormat) {
    const WordFormat* const found = findFormat(format == kWordDefaultFormat ? defaultFormat : format);
    return found == nullptr ? std::string() : dottedExtension(found->extension, dot);
}

WordOfficeDocumentType wordOfficeDocumentType(int format) {
    const WordFormat* const found = findFormat(format);
    if (found == nullptr) {
        throw AutomationError(kUnknownOfficeDocumentType,
                              "unknown WordOfficeDocumentType " + std::to_string(format));
    }
    return found->type;
}

std::string wordFilter(int format, int defaultFormat) {
    return extensionFilter(wordExtension(format, LeadingDot::Without, defaultFormat));
}

std::span<const int> offeredWordFormats() {
    return kOffered;
}

int wordFormatByExtension(std::string_view extension) {
    const auto* const found = std::ranges::find_if(
        kOffered, [&](int format) { return fitsFormat(extension, wordExtension(format)); });
    return found == kOffered.end() ? kWordDocument97 : *found;
}

bool isWordExtension(std::string_view extension) {
    return fitsFormat(extension, wordExtension(wordFormatByExtension(extension)));
}

int wordDefaultSaveFormat(std::string_view defaultSaveFormat, int wordVersion) {
    const auto found =
        std::find_if(kDefaultSaveFormats.begin(), kDefaultSaveFormats.end(),
                     [&](const DefaultSaveFormat& known) { return known.value == defaultSaveFormat; });
    if (found != kDefaultSaveFormats.end()) return found->format;
    return wordVersion >= kFirstVersionWithOpenXml ? kWordDocument : kWordDocument97;
}

}  // namespace mergeloom
