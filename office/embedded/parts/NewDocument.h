#pragma once

#include "office/embedded/parts/InitialPart.h"

#include <vector>

namespace mergeloom::embedded {

/// Returns the parts of an empty document: one empty paragraph on an A4 page with margins of 2.54 cm, and the
/// styles that Word users expect. The main part comes first and a source before its targets.
std::vector<InitialPart> newDocumentParts();

}  // namespace mergeloom::embedded
