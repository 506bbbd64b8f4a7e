#pragma once

#include "base/AutomationError.h"

#include <string>

/// Paths are texts with "/" between their parts. A "/" at a path's end is ignored: the last part of
/// "a/b/" is "b". A path that cannot be examined (no permission, a name too long) counts as missing.
namespace mergeloom {

inline constexpr ErrorNumber kPermissionDenied = 70;

/// Returns the path from the root, without "." and ".." parts; links are not followed. Empty for an empty
/// path.
std::string fullPath(const std::string& path);
/// Returns the path before the last part, without the "/" between them; empty for a single part and for the
/// root.
std::string parentFolder(const std::string& path);
/// Returns the last part; empty for the root.
std::string fileNameOnly(const std::string& path);
/// Returns the text after the last "." of the last part, unchanged; empty when there is no ".".
std::string extension(const std::string& path);
/// Returns the path of the name inside the folder; the name alone for an empty folder.
std::string joinPath(const std::string& folder, const std::string& name);

bool folderExists(const std::string& path);
/// Returns false for a folder. A link counts as its target.
bool fileExists(const std::string& path);
/// Raises kPermissionDenied with a sentence that names the file. A missing file is no error.
void removeFile(const std::string& path);

/// Returns the path of the running program; empty when the system does not report it.
std::string programPath();
/// Returns the path of a file that belongs to the program and is beside it or in ../lib/mergeloom; empty when
/// there is none.
std::string installedFile(const std::string& name);
/// Returns the system's folder for temporary files; empty when there is none.
std::string temporaryFolder();

}  // namespace mergeloom
