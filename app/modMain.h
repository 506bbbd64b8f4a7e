#pragma once

#include <cstdint>
#include <string>

/// Small routines of `modMain` on paths, files and the process itself.
namespace mergeloom {

/// 1 for Excel, 0 for Word; set once at the start.
extern std::int32_t gExcelMode;

/// Returns the path without its last part; empty when the folder must exist and does not.
std::string GetParentFolder(const std::string& vstrPath, bool vfMustExist);
std::string GetFileNameOnly(const std::string& vstrPath);
/// Returns the system's folder for temporary files with a separator at its end; empty when there is none.
std::string GetTempFolder();
/// Returns the program's name without its extension, then ".chm".
std::string GetHelpFileName();
/// Returns the path of the help file in the program's own folder.
std::string GetHelpFilePath();
/// Returns the folder without blanks at its ends and with the system's path separator after it.
std::string AddTrailingBackslash(const std::string& vstrFolder);
/// Returns whether another program has locked the file: by a lock of the system, or by the lock file that
/// LibreOffice puts beside a document that it has open. A file that cannot be opened counts as locked.
bool IsFileLocked(const std::string& vstrPath);
/// Deletes the structure document when the command line requires it. Raises kPermissionDenied with a sentence
/// that names the file when it exists and cannot be deleted.
void DeleteXmlFileIfRequested();

}  // namespace mergeloom
