#include "app/modMain.h"

#include "app/mCommandLine.h"
#include "base/FileLock.h"
#include "base/Paths.h"
#include "base/Text.h"

namespace mergeloom {

std::int32_t gExcelMode = 0;

std::string GetParentFolder(const std::string& vstrPath, bool vfMustExist) {
    const std::string folder = parentFolder(vstrPath);
    return vfMustExist && !folderExists(folder) ? std::string() : folder;
}

std::string GetFileNameOnly(const std::string& vstrPath) {
    return fileNameOnly(vstrPath);
}

std::string GetTempFolder() {
    const std::string folder = temporaryFolder();
    return folder.empty() ? folder : joinPath(folder, "");
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
    return folder.ends_with('/') ? folder : folder + '/';
}

bool IsFileLocked(const std::string& vstrPath) {
    const std::string lockFile = joinPath(parentFolder(vstrPath), ".~lock." + fileNameOnly(vstrPath) + "#");
    return isLockedByAnother(vstrPath) || fileExists(lockFile);
}

void DeleteXmlFileIfRequested() {
    if (GetCommandLineArgument(kDeleteXmlFileSwitch).empty()) return;
    const std::string xmlFile = GetCommandLineArgument(kXmlFileSwitch);
    if (fileExists(xmlFile)) removeFile(xmlFile);
}

}  // namespace mergeloom
