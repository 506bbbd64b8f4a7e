#pragma once

#include "office/embedded/letters/Piece.h"
#include "office/embedded/letters/RichText.h"

#include <string>
#include <vector>

namespace mergeloom::embedded {

/// Appends rich text with the formatting of its place. The XML starts and ends inside a run. Paragraphs
/// become lines if the paragraph of the place cannot be split there.
void appendRichText(std::string& xml, const std::vector<RichParagraph>& paragraphs,
                    const PlaceFormat& format);

}  // namespace mergeloom::embedded
