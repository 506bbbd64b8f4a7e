#pragma once

#include "ui/dialogs/FileDialog.h"

#include <string>
#include <vector>

namespace mergeloom {

/// Asks the user for a file, or several. Returns true when something was chosen: then the first text is
/// FileName of the dialog and, when several may be chosen, the list has all paths. Otherwise both stay as
/// they were.
bool SelectFile(FileDialog& dialog, const FileQuestion& question, std::string& rstrFileName,
                std::vector<std::string>& rcolFileNames);

enum class PatternInDescription { Hidden, Shown };

/// Returns the filter with one more entry, "description|pattern" or "description (pattern)|pattern".
std::string AddFilter(const std::string& filter, const std::string& description,
                      const std::string& pattern = "*.*",
                      PatternInDescription shown = PatternInDescription::Hidden);

}  // namespace mergeloom
