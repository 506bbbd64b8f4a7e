#include "office/formats/mWordFileExtensions.h"

#include <algorithm>
#include <array>

namespace mergeloom {

namespace {

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

}  // namespace

std::string wordExtension(int format, LeadingDot dot, int defaultFormat) {
    return formatExtension(DocumentFamily::Word, format == kWordDefaultFormat ? defaultFormat : format, dot);
}

int wordFormatByExtension(std::string_view extension) {
    const FileFormat* const found = findOfferedFormat(DocumentFamily::Word, extension);
    return found == nullptr ? kWordDocument97 : found->number;
}

bool isWordExtension(std::string_view extension) {
    return findOfferedFormat(DocumentFamily::Word, extension) != nullptr;
}

int wordDefaultSaveFormat(std::string_view defaultSaveFormat, int wordVersion) {
    const auto* const found =
        std::ranges::find(kDefaultSaveFormats, defaultSaveFormat, &DefaultSaveFormat::value);
    if (found != kDefaultSaveFormats.end()) return found->format;
    return wordVersion >= kFirstVersionWithOpenXml ? kWordDocument : kWordDocument97;
}

}  // namespace mergeloom
