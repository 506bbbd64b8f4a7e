#pragma once

#include "office/embedded/sheet/StyleSheet.h"

#include <string_view>

namespace mergeloom::embedded {

/// Returns the width in pixels (96 to an inch) of the widest digit of a font, the unit of column widths
/// (ECMA-376 Part 1, 18.3.1.13). For an unknown font the most similar known one is used.
int digitWidth(const CellFont& font);

/// Returns the width of one line of text in pixels, without kerning.
double textWidth(std::string_view text, const CellFont& font);

/// Returns the height in points of a row in that font if the sheet does not specify one.
double lineHeight(const CellFont& font);

}  // namespace mergeloom::embedded
