#pragma once

#include "base/AutomationError.h"

#include <string>

/// Paths are texts with "/" between their parts. A "/" at a path's end does not count: the last part of
/// "a/b/" is "b". What the disk cannot answer (no right to look, a name too long) counts as not there.
namespace mergeloom {

inline constexpr ErrorNumber kPermissionDenied = 70;

/// The path from the root, without "." and ".." parts; links are not followed. Empty for an empty path.
std::string fullPath(const std::string& path);
/// What stands before the last part, without the "/" between them; empty for a single part and for the root.
std::string parentFolder(const std::string& path);
/// The last part; empty for the root.
std::string fileNameOnly(const std::string& path);
/// What follows the last "." of the last part, as it is written; empty when there is no ".".
std::string extension(const std::string& path);
/// The name inside the folder; the name alone for an empty folder.
std::string joinPath(const std::string& folder, const std::string& name);

bool folderExists(const std::string& path);
/// A folder is not a file; a link counts as what it leads to.
bool fileExists(const std::string& path);
/// Raises kPermissionDenied with a sentence that names the file. A file that is not there is no error.
void removeFile(const std::string& path);

/// The path of the program that runs; empty when the system does not tell.
std::string programPath();
/// The system's folder for temporary files; empty when there is none.
std::string temporaryFolder();

}  // namespace mergeloom
