#include "office/embedded/parts/SaveFormats.h"

#include "base/AutomationError.h"

#include <algorithm>
#include <array>
#include <vector>

namespace mergeloom::embedded {

namespace {

/// The relationships of a main part that only the kinds with macros may have ([MS-OFFMACRO2]).
constexpr std::array kMacroRelationships{
    "http://schemas.microsoft.com/office/2006/relationships/vbaProject",
    "http://schemas.microsoft.com/office/2006/relationships/xlMacrosheet",
};

[[noreturn]] void refuse(const std::string& fileName, const std::string& why) {
    throw AutomationError(kFileCouldNotBeSaved, "The file '" + fileName + "' cannot be saved: " + why);
}

/// "docx, docm or dotm".
std::string joined(const std::vector<std::string_view>& words) {
    std::string text;
    for (std::size_t index = 0; index < words.size(); ++index) {
        if (index > 0) text += index + 1 == words.size() ? " or " : ", ";
        text += words[index];
    }
    return text;
}

enum class Offered { All, WithMacros };

std::string extensions(const SaveFormats& formats, Offered offered) {
    std::vector<std::string_view> words;
    for (const SaveFormat& format : formats.formats) {
        if (offered == Offered::All || format.takesMacros) words.push_back(format.extension);
    }
    return joined(words);
}

bool holdsMacros(Package& package, const std::string& mainPart) {
    const Relationships& relationships = package.relationshipsOf(mainPart);
    return std::ranges::any_of(kMacroRelationships,
                               [&](const char* type) { return relationships.hasType(type); });
}

}  // namespace

const SaveFormat* SaveFormats::find(int number) const {
    const auto found = std::ranges::find(formats, number, &SaveFormat::number);
    return found == formats.end() ? nullptr : &*found;
}

void setSaveFormat(Package& package, const SaveFormats& formats, int number, const std::string& fileName) {
    const SaveFormat* target = formats.find(number);
    if (!target) {
        refuse(fileName, "its format can only be written by another office. Choose " +
                             extensions(formats, Offered::All) + ".");
    }
    const std::string mainPart = package.mainPart();
    if (!target->takesMacros && holdsMacros(package, mainPart)) {
        refuse(fileName, "the " + std::string(formats.document) +
                             " holds macros, which its format cannot keep. Choose " +
                             extensions(formats, Offered::WithMacros) + ".");
    }
    const std::string type(target->contentType);
    if (package.contentTypes().of(mainPart) != type) package.contentTypes().setOverride(mainPart, type);
}

}  // namespace mergeloom::embedded
