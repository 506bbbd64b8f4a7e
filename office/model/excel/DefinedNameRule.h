#pragma once

#include "base/Text.h"

#include <string>

namespace mergeloom::excel {

inline constexpr CharacterCount kMaxDefinedName{255};

/// Returns true for what can be a defined name: letters, digits, "_", ".", "\" and "?", the first one a
/// letter, "_" or "\", at most 255 characters, and nothing that reads as a cell in either notation ("A1",
/// "R1C1", "R", "C") or as a truth value.
bool isDefinedName(const std::string& text);

}  // namespace mergeloom::excel
