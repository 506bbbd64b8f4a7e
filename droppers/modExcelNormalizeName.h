#pragma once

#include <string>
#include <string_view>

namespace mergeloom {

/// The range name for a name of the structure document: letters, digits and "_" only, the last 255 characters
/// (UTF-16 code units) at most, never a digit first. With vfAppendT a "T" is put behind the name before.
/// Empty when nothing usable is left. A name of any length has a range name, unlike a bookmark's.
std::string ExcelNormalizeName(std::string_view rstrName, bool vfAppendT);

}  // namespace mergeloom
