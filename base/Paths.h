#pragma once

#include "base/AutomationError.h"

#include <cstddef>
#include <string>
#include <string_view>

/// Paths are texts with the system's separator between their parts: "/", on Windows also "\". A separator at
/// a path's end is ignored: the last part of "a/b/" is "b". A path that cannot be examined (no permission, a
/// name too long) counts as missing.
namespace mergeloom {

inline constexpr ErrorNumber kPermissionDenied = 70;

/// Returns true for a character between the parts of a path.
bool isPathSeparator(char character);
/// Returns the separator of paths that the program makes.
char pathSeparator();
/// Returns the length of the root of a path, before its first part: "/" and on Windows "C:\", "C:" or
/// "\\server\share\".
std::size_t rootLength(std::string_view path);
/// Returns true for a path that does not depend on the current folder or drive.
bool isAbsolutePath(std::string_view path);

/// Returns the path from the root, without "." and ".." parts; links are not followed. Empty for an empty
/// path.
std::string fullPath(const std::string& path);
/// Returns the path before the last part, without the separator between them; empty for a single part and for
/// the root.
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
/// Returns true for two paths of one existing file, as by a link.
bool isSameFile(const std::string& path, const std::string& other);
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
