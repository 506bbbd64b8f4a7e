#pragma once

#include "office/embedded/text/Story.h"

#include <vector>

namespace mergeloom::embedded {

/// The items that bound a field of either shape (ECMA-376 Part 1, 17.16.18 and 17.16.19).
struct FieldItems {
    Item* begin = nullptr;
    Item* separator = nullptr;  ///< none where the field has no result, and for w:fldSimple
    Item* end = nullptr;
    bool isInCode = false;  ///< part of the code of another one of the fields
};

/// The fields that begin between two positions, in order; an outer field before those inside it. A begin
/// without its end makes no field.
std::vector<FieldItems> fieldsBetween(const Story& story, CharacterPosition start, CharacterPosition end);

}  // namespace mergeloom::embedded
