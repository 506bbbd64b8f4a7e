#include "office/embedded/word/WordSaveFormats.h"

#include "office/model/word/Enumerations.h"

#include <array>

namespace mergeloom::embedded {

namespace {

using word::WdSaveFormat;

constexpr auto kFormats = std::to_array<SaveFormat>({
    {static_cast<int>(WdSaveFormat::wdFormatXMLDocument), "docx",
     "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml", false},
    {static_cast<int>(WdSaveFormat::wdFormatXMLDocumentMacroEnabled), "docm",
     "application/vnd.ms-word.document.macroEnabled.main+xml", true},
    {static_cast<int>(WdSaveFormat::wdFormatXMLTemplate), "dotx",
     "application/vnd.openxmlformats-officedocument.wordprocessingml.template.main+xml", false},
    {static_cast<int>(WdSaveFormat::wdFormatXMLTemplateMacroEnabled), "dotm",
     "application/vnd.ms-word.template.macroEnabledTemplate.main+xml", true},
});

}  // namespace

const SaveFormats& wordSaveFormats() {
    static const SaveFormats formats{"document", kFormats};
    return formats;
}

}  // namespace mergeloom::embedded
