#pragma once

#include <cstdint>
#include <string>

/// The small routines of `modMain` on paths, files and the process's facts.
namespace mergeloom {

/// 1 when Excel was asked for, 0 for Word; set once at the start.
extern std::int32_t gExcelMode;

/// The path without its last part; empty when the folder must exist and does not.
std::string GetParentFolder(const std::string& vstrPath, bool vfMustExist);
std::string GetFileNameOnly(const std::string& vstrPath);
/// The system's folder for temporary files with a separator at its end; empty when there is none.
std::string GetTempFolder();
/// The program's name without its extension, then ".chm".
std::string GetHelpFileName();
/// The help file in the program's own folder.
std::string GetHelpFilePath();
/// The folder without blanks at its ends and with the system's path separator behind it.
std::string AddTrailingBackslash(const std::string& vstrFolder);
/// Whether another program has the file: a lock that the system knows, or the lock file that LibreOffice puts
/// beside a document it has open. A file that cannot be opened counts as locked.
bool IsFileLocked(const std::string& vstrPath);
/// Deletes the structure document when the command line asks for it. Raises kPermissionDenied with a sentence
/// that names the file when it is there and cannot be deleted.
void DeleteXmlFileIfRequested();

}  // namespace mergeloom
