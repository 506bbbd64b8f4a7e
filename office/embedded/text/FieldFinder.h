#pragma once

#include "office/embedded/text/Story.h"

#include <vector>

namespace mergeloom::embedded {

/// The items that delimit a field of either form (ECMA-376 Part 1, 17.16.18 and 17.16.19).
struct FieldItems {
    Item* begin = nullptr;
    Item* separator = nullptr;  ///< none when the field has no result, and for w:fldSimple
    Item* end = nullptr;
    bool isInCode = false;  ///< in the code of another one of the fields
};

/// Returns the fields that begin between two positions, in order, an outer field before those inside it. A
/// begin without its end makes no field.
std::vector<FieldItems> fieldsBetween(const Story& story, CharacterPosition start, CharacterPosition end);

}  // namespace mergeloom::embedded
