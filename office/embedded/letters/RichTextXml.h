#pragma once

#include "office/embedded/letters/Piece.h"
#include "office/embedded/letters/RichText.h"

#include <string>
#include <vector>

namespace mergeloom::embedded {

/// Appends rich text in the formatting of its place, from inside of a run and up to inside of another one.
/// Where the place is in an element of a paragraph, which cannot end there, paragraphs become lines.
void appendRichText(std::string& xml, const std::vector<RichParagraph>& paragraphs,
                    const PlaceFormat& format);

}  // namespace mergeloom::embedded
