#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Small routines of `modMain` on paths, files, texts and the process itself.
namespace mergeloom {

/// 1 for Excel, 0 for Word; set once at the start.
extern std::int32_t gExcelMode;

/// Returns the path without its last part; empty when the folder must exist and does not.
std::string GetParentFolder(const std::string& vstrPath, bool vfMustExist);
std::string GetFileNameOnly(const std::string& vstrPath);
/// Returns the program's name without its extension, then ".chm".
std::string GetHelpFileName();
/// Returns the path of the help file in the program's own folder.
std::string GetHelpFilePath();
/// Returns the folder without blanks at its ends and with the system's path separator after it.
std::string AddTrailingBackslash(const std::string& vstrFolder);
/// Returns true when another program has locked the file: by a lock of the system, or by the lock file that
/// LibreOffice and the designer put beside a document that they have open. A file that cannot be opened
/// counts as locked.
bool IsFileLocked(const std::string& vstrPath);
/// Deletes the structure document when the command line requires it, but never a database. Raises
/// kPermissionDenied with a sentence that names the file when it exists and cannot be deleted.
void DeleteXmlFileIfRequested();
/// Raises kOptionNotUnderstood when the command line requires the deletion of a database.
void RefuseDeletionOfDatabase();

enum class TrimMode { Left = 0, Both = 1, Right = 2 };

/// Returns true when the character at the position (a byte's offset) is inside double quotes, or else inside
/// single quotes: an odd number of them up to and including the position and at least one from the position
/// on.
bool IsInsideQuotes(std::string_view text, std::size_t position);

/// Returns how many parts splitting the text at the separator yields, less one; 0 for an empty text.
std::int32_t CountOccurrences(std::string_view text, std::string_view separator);

/// Removes runs of the character (a text of any length) from the ends that the mode names. A left run is
/// removed only when at least two characters follow it, a right run only when something is left before it, so
/// that a text of nothing but the character stays as it is.
std::string TrimCharacter(std::string_view text, std::string_view character, TrimMode mode);

}  // namespace mergeloom
