#pragma once

#include "office/formats/FormatTable.h"

#include <string_view>

namespace mergeloom {

/// The version of an Office that could not be determined.
inline constexpr int kUnknownOfficeVersion = 0;

/// Returns the major number (0 to 255) at the start of an application's Version, such as 16 for "16.0";
/// kUnknownOfficeVersion when it begins with none or the number is larger.
int majorOfficeVersion(std::string_view version);

/// Returns true when an application of that major version number is among those that save in a format. An
/// unknown version is assumed to save in every format.
bool canSave(SavedBy versions, int version);

}  // namespace mergeloom
