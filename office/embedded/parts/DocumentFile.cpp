#include "office/embedded/parts/DocumentFile.h"

#include "base/AutomationError.h"
#include "base/Paths.h"

#include <algorithm>
#include <array>
#include <string_view>
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

/// Returns a list such as "docx, docm or dotm".
std::string joined(const std::vector<std::string_view>& words) {
    std::string text;
    for (std::size_t index = 0; index < words.size(); ++index) {
        if (index > 0) text += index + 1 == words.size() ? " or " : ", ";
        text += words[index];
    }
    return text;
}

/// Returns the extensions of the formats that the engine writes, or only of those that keep macros.
std::string extensions(DocumentFamily family, Macros least) {
    std::vector<std::string_view> words;
    for (const FileFormat& format : fileFormats(family)) {
        if (format.engine && (least == Macros::Refused || format.engine->macros == Macros::Kept))
            words.push_back(format.extension);
    }
    return joined(words);
}

const char* documentName(DocumentFamily family) {
    return family == DocumentFamily::Word ? "document" : "workbook";
}

bool holdsMacros(opc::Package& package, const std::string& mainPart) {
    const opc::Relationships& relationships = package.relationshipsOf(mainPart);
    return std::ranges::any_of(kMacroRelationships,
                               [&](const char* type) { return relationships.hasType(type); });
}

/// Sets the main part's content type to that of the format.
void setSaveFormat(opc::Package& package, DocumentFamily family, int number, const std::string& fileName) {
    if (!canWrite(family, number)) {
        refuse(fileName, "its format can only be written by another office. Choose " +
                             extensions(family, Macros::Refused) + ".");
    }
    const OpenPackagingKind& target = *findFormat(family, number)->engine;
    const std::string mainPart = package.mainPart();
    if (target.macros == Macros::Refused && holdsMacros(package, mainPart)) {
        refuse(fileName, "the " + std::string(documentName(family)) +
                             " holds macros, which its format cannot keep. Choose " +
                             extensions(family, Macros::Kept) + ".");
    }
    const std::string type(target.contentType);
    if (package.contentTypes().of(mainPart) != type) package.contentTypes().setOverride(mainPart, type);
}

}  // namespace

bool canWrite(DocumentFamily family, int number) {
    const FileFormat* const format = findFormat(family, number);
    return format != nullptr && format->engine;
}

std::string DocumentFile::name() const {
    return fileNameOnly(fullName_);
}

void DocumentFile::save(opc::Package& package) {
    if (!hasFile_) throw AutomationError(kFileCouldNotBeSaved, "The document has no file name yet.");
    write(package, fullName_);
}

void DocumentFile::saveAs(opc::Package& package, DocumentFamily family, int number,
                          const std::string& fileName) {
    const std::string mainPart = package.mainPart();
    const std::string formerType = package.contentTypes().of(mainPart);
    setSaveFormat(package, family, number, fileName);
    try {
        write(package, fileName);
    } catch (const AutomationError&) {
        // The document keeps its former name, and with it the content type that fits the name.
        package.contentTypes().setOverride(mainPart, formerType);
        throw;
    }
    fullName_ = fileName;
    hasFile_ = true;
}

void DocumentFile::write(opc::Package& package, const std::string& fileName) {
    files_.save(fileName, [&](ByteSink& sink) { package.write(sink); });
}

}  // namespace mergeloom::embedded
