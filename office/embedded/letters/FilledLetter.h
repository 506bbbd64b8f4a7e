#pragma once

#include "office/opc/Package.h"

#include <string>
#include <vector>

/// Filled letters can be filled again. Some marks, which Word preserves, identify the content that was added.
namespace mergeloom::embedded {

/// Replaces, in a restored template, the empty text of a run that preserves the formatting of a place. It is
/// a noncharacter, which no text contains (U+FDD2).
inline constexpr const char* kKeptPlace = "\uFDD2";

/// The prefix of the hidden bookmarks over the rows that were added after the pattern rows of a table. A
/// number follows it.
inline constexpr const char* kAddedRowsName = "_MergeloomRows";

/// The prefix of the hidden bookmarks at the start of the labels that were filled after the first one. A
/// number follows it.
inline constexpr const char* kFilledLabelName = "_MergeloomLabel";

enum class PartKind { Body, HeaderOrFooter, Notes, Comments };

/// A part of a document that can contain places.
struct StoryPart {
    std::string name;
    PartKind kind;
};

/// Returns the parts of a document that can contain places, the body first.
std::vector<StoryPart> partsWithPlaces(opc::Package& package);

/// Restores the template of a filled letter: inserts the omitted content, removes the added rows, empties the
/// labels after the first one, joins the paragraphs of rich text, and inserts kKeptPlace into the empty runs
/// at the start of places. Raises kNotAvailable for text with the characters that mark places.
void restoreTemplate(opc::Package& package);

}  // namespace mergeloom::embedded
