#pragma once

#include "office/embedded/letters/Piece.h"
#include "office/embedded/parts/RichText.h"

#include <cstddef>
#include <string>
#include <vector>

namespace mergeloom::embedded {

/// The properties of the paragraphs that rich text adds.
struct AddedParagraphs {
    std::string properties{};  ///< the whole element, or empty
    std::string section{};     ///< the properties of the section that ends with the last paragraph, or empty
};

/// Appends rich text with the formatting of its place. The XML starts and ends inside a run. Paragraphs
/// become lines if the paragraph of the place cannot be split there; otherwise the last of them ends the
/// section. Returns the position in the XML after the properties of that section.
std::size_t appendRichText(std::string& xml, const std::vector<RichParagraph>& paragraphs,
                           const PlaceFormat& format, const AddedParagraphs& added);

}  // namespace mergeloom::embedded
