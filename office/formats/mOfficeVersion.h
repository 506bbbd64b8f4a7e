#pragma once

#include <string_view>

namespace mergeloom {

/// The version of an Office that could not be asked.
inline constexpr int kUnknownOfficeVersion = 0;

/// The major number (0 to 255) at the start of an application's Version, such as 16 for "16.0";
/// kUnknownOfficeVersion when none stands there or it is larger.
int majorOfficeVersion(std::string_view version);

/// Whether a Word of that major version number can save in the format, a WdSaveFormat number. An unknown
/// version is trusted with every format.
bool canWordSave(int format, int wordVersion);

}  // namespace mergeloom
