#pragma once

#include "droppers/modWordNormalizeName.h"
#include "office/model/excel/DefinedNameRule.h"

#include <string>
#include <string_view>

namespace mergeloom {

/// Returns the range name for a name of the structure document: letters, digits and "_" only, at most the
/// last 255 characters (UTF-16 code units), never a digit first. With vfAppendT, a "T" is first appended to
/// the name. Returns an empty text when nothing usable is left. Unlike a bookmark's name, the name may have
/// any length.
inline std::string ExcelNormalizeName(std::string_view rstrName, bool vfAppendT) {
    return normalizedName(nameToNormalize(rstrName, vfAppendT), excel::kMaxDefinedName);
}

}  // namespace mergeloom
