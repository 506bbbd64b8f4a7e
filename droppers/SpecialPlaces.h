#pragma once

#include "droppers/modWordNormalizeName.h"
#include "xml/modNamedItems.h"

#include <string>

namespace mergeloom {

/// The number of places of each special kind that a document can have.
inline constexpr int kMaxPlacesOfAKind = 20;

/// Returns the name of a special place: that of its kind, followed by a number from 0.
inline std::string specialPlaceName(DropKind kind, int number) {
    return WordNormalizeName(DropKindName(kind), false) + std::to_string(number);
}

/// Returns true for the name of a place for an optional blank or line break.
bool isSpecialPlaceName(const std::string& name);

}  // namespace mergeloom
