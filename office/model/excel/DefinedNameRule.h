#pragma once

#include "base/Text.h"

#include <string>

namespace mergeloom::excel {

inline constexpr CharacterCount kMaxDefinedName{255};

/// Returns true when the text can be a defined name: letters, digits, "_", ".", "\" and "?", the first one a
/// letter, "_" or "\", at most 255 characters, and neither a cell in one of the notations ("A1", "R1C1", "R",
/// "C") nor a truth value.
bool isDefinedName(const std::string& text);

}  // namespace mergeloom::excel
