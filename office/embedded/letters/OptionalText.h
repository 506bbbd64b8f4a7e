#pragma once

#include "office/embedded/letters/Piece.h"

namespace mergeloom::embedded {

/// Finds the values beside each optional text: those in the same paragraph between which and the text there
/// is nothing but markup and the characters that keep bookmarks apart.
void findValuesBeside(Pieces& pieces);

}  // namespace mergeloom::embedded
