#pragma once

#include "office/model/word/Fields.h"

#include <cstddef>
#include <string>
#include <vector>

namespace mergeloom {

/// The index of the piece of a field's code that names the data, counted from 0.
inline constexpr std::size_t kNameInQuote = 1;
inline constexpr std::size_t kNameInIf = 4;
inline constexpr std::size_t kNameInMergeField = 1;

/// Returns the data names of a field of the old kinds, each once, such that no name is lost when the field is
/// removed: those of the merge fields that are nested in its code, or without any those of the QUOTE fields
/// there, or without any the piece of its own code. A merge field has its own name besides. Returns
/// none for a QUOTE or IF field without such a piece whose text comes from a field that is no data place,
/// such as a page's number. Raises kSubscriptOutOfRange when another code has no such piece, and the errors
/// of Field::Code.
std::vector<std::string> dataNames(word::Field& field, std::size_t ownPiece);

}  // namespace mergeloom
