#pragma once

#include "office/formats/OfferedFormats.h"

namespace mergeloom {

/// Returns true if a file of the format with that number keeps the named places. In another format it is no
/// template any more.
bool keepsPlaces(DocumentFamily family, int format);

/// Returns the offered formats (offeredFormats) of templates, then those of documents that keep the places.
std::vector<OfferedFormat> formatsOfTemplates(DocumentFamily family, int version,
                                              const FormatPredicate& canUse);

}  // namespace mergeloom
