#include "office/embedded/word/WordSaveFormats.h"

#include "base/AutomationError.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace mergeloom::embedded {

namespace {

using word::WdSaveFormat;

struct SaveFormat {
    WdSaveFormat format;
    std::string_view contentType;
    bool takesMacros;
};

constexpr auto kFormats = std::to_array<SaveFormat>({
    {WdSaveFormat::wdFormatXMLDocument,
     "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml", false},
    {WdSaveFormat::wdFormatXMLDocumentMacroEnabled, "application/vnd.ms-word.document.macroEnabled.main+xml",
     true},
    {WdSaveFormat::wdFormatXMLTemplate,
     "application/vnd.openxmlformats-officedocument.wordprocessingml.template.main+xml", false},
    {WdSaveFormat::wdFormatXMLTemplateMacroEnabled,
     "application/vnd.ms-word.template.macroEnabledTemplate.main+xml", true},
});

const SaveFormat* find(WdSaveFormat format) {
    const auto isIt = [&](const SaveFormat& candidate) { return candidate.format == format; };
    const auto* found = std::find_if(kFormats.begin(), kFormats.end(), isIt);
    return found == kFormats.end() ? nullptr : found;
}

constexpr const char* kMacroProject = "http://schemas.microsoft.com/office/2006/relationships/vbaProject";

[[noreturn]] void refuse(const std::string& fileName, const std::string& why) {
    throw AutomationError(kFileCouldNotBeSaved, "The file '" + fileName + "' cannot be saved: " + why);
}

}  // namespace

bool canWrite(WdSaveFormat format) {
    return find(format) != nullptr;
}

void setSaveFormat(Package& package, const std::string& mainPart, WdSaveFormat format,
                   const std::string& fileName) {
    const SaveFormat* target = find(format);
    if (!target) {
        refuse(fileName,
               "its format can only be written by another office. Choose docx, docm, dotx or dotm.");
    }
    const bool hasMacros = package.relationshipsOf(mainPart).hasType(kMacroProject);
    if (hasMacros && !target->takesMacros) {
        refuse(fileName, "the document holds macros, which its format cannot keep. Choose docm or dotm.");
    }
    const std::string type(target->contentType);
    if (package.contentTypes().of(mainPart) != type) package.contentTypes().setOverride(mainPart, type);
}

}  // namespace mergeloom::embedded
