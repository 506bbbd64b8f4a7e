#include "app/modMain.h"

#include "app/mCommandLine.h"
#include "base/AutomationError.h"
#include "base/DatabaseFile.h"
#include "base/DocumentLock.h"
#include "base/FileLock.h"
#include "base/OptionReader.h"
#include "base/Paths.h"
#include "base/Text.h"

namespace mergeloom {

namespace {

bool isInside(std::string_view text, std::size_t position, std::string_view quote) {
    const std::string_view left = text.substr(0, position + 1);
    const std::string_view right = text.substr(position);
    return CountOccurrences(left, quote) % 2 == 1 && CountOccurrences(right, quote) > 0;
}

}  // namespace

std::int32_t gExcelMode = 0;

std::string GetParentFolder(const std::string& vstrPath, bool vfMustExist) {
    const std::string folder = parentFolder(vstrPath);
    return vfMustExist && !folderExists(folder) ? std::string() : folder;
}

std::string GetFileNameOnly(const std::string& vstrPath) {
    return fileNameOnly(vstrPath);
}

std::string GetHelpFileName() {
    const std::string name = fileNameOnly(programPath());
    return name.substr(0, name.rfind('.')) + ".chm";
}

std::string GetHelpFilePath() {
    return AddTrailingBackslash(parentFolder(programPath())) + GetHelpFileName();
}

std::string AddTrailingBackslash(const std::string& vstrFolder) {
    const std::string folder(trimBlanks(vstrFolder));
    return !folder.empty() && isPathSeparator(folder.back()) ? folder : folder + pathSeparator();
}

bool IsFileLocked(const std::string& vstrPath) {
    return isLockedByAnother(vstrPath) || otherLockOwner(vstrPath).has_value();
}

void DeleteXmlFileIfRequested() {
    if (GetCommandLineArgument(kDeleteXmlFileSwitch).empty()) return;
    const std::string xmlFile = GetCommandLineArgument(kXmlFileSwitch);
    if (fileExists(xmlFile) && !isDatabaseFile(xmlFile)) removeFile(xmlFile);
}

void RefuseDeletionOfDatabase() {
    const std::string xmlFile = GetCommandLineArgument(kXmlFileSwitch);
    if (GetCommandLineArgument(kDeleteXmlFileSwitch).empty() || !isDatabaseFile(xmlFile)) return;
    throw AutomationError(kOptionNotUnderstood, "'" + xmlFile +
                                                    "' is a database, which is never deleted: leave out "
                                                    "-deletexmlfile.");
}

bool IsInsideQuotes(std::string_view text, std::size_t position) {
    if (position >= text.size()) return false;
    return isInside(text, position, "\"") || isInside(text, position, "'");
}

std::int32_t CountOccurrences(std::string_view text, std::string_view separator) {
    if (separator.empty()) return 0;
    std::int32_t count = 0;
    for (std::size_t at = text.find(separator); at != std::string_view::npos;
         at = text.find(separator, at + separator.size())) {
        ++count;
    }
    return count;
}

std::string TrimCharacter(std::string_view text, std::string_view character, TrimMode mode) {
    if (character.empty()) return std::string(text);
    if (mode != TrimMode::Right) {
        std::string_view rest = text;
        while (rest.starts_with(character))
            rest.remove_prefix(character.size());
        if (utf16Length(rest).value > 1) text = rest;
    }
    if (mode != TrimMode::Left) {
        std::string_view rest = text;
        while (rest.ends_with(character))
            rest.remove_suffix(character.size());
        if (!rest.empty()) text = rest;
    }
    return std::string(text);
}

}  // namespace mergeloom
