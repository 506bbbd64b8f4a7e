#pragma once

#include "office/embedded/letters/Piece.h"

namespace mergeloom::embedded {

/// Finds the values beside each optional text. They are in the same paragraph, and no visible content is
/// between them and the text.
void findValuesBeside(Pieces& pieces);

}  // namespace mergeloom::embedded
