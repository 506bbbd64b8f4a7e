#pragma once

#include "office/embedded/sheet/StyleSheet.h"

#include <string_view>

namespace mergeloom::embedded {

/// The width in pixels (96 to an inch) of the widest digit of a font, the unit of column widths (ECMA-376
/// Part 1, 18.3.1.13). A font that is not known counts as the known one that is most like it.
int digitWidth(const CellFont& font);

/// The width of one line of text in pixels, kerning aside.
double textWidth(std::string_view text, const CellFont& font);

/// The height in points of a row of that font where a sheet says nothing.
double lineHeight(const CellFont& font);

}  // namespace mergeloom::embedded
