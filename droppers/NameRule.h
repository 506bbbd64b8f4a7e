#pragma once

#include "base/Units.h"

#include <string>
#include <string_view>

/// The steps that names of Word's and of Excel's places have in common.
namespace mergeloom {

/// Makes a name of a document of a name of the structure document, as `WordNormalizeName` does.
using NameRule = std::string (*)(std::string_view name, bool appendT);

bool beginsWithDigit(std::string_view text);

/// The name with the "T" of a table if that is wanted; nothing stays nothing.
std::string nameToNormalize(std::string_view name, bool appendT);

/// Letters, digits and "_" only, the last characters up to the longest length in UTF-16 code units, never a
/// digit first.
std::string normalizedName(std::string_view name, CharacterCount longest);

}  // namespace mergeloom
