#pragma once

#include "office/embedded/letters/PlaceMarker.h"
#include "office/model/letters/LetterTemplate.h"
#include "office/opc/XmlPart.h"

namespace mergeloom::embedded {

/// Replaces the results of the fields that repeat the text of a place (REF; ECMA-376 Part 1, 17.16.5.54) by
/// tokens of further places. In one document for all records, where the bookmarks go, such fields become
/// text. A field that shows the page of a place (PAGEREF, 17.16.5.45) is updated when the letter is opened.
/// Adds a sentence for each field that is not filled. Returns true if the part has such fields.
bool markReferences(const opc::XmlPart& part, MarkedPlaces& marked, letters::LetterUse use);

}  // namespace mergeloom::embedded
