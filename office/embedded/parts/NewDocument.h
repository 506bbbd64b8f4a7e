#pragma once

#include "office/embedded/parts/SeedPart.h"

#include <vector>

namespace mergeloom::embedded {

/// The parts of an empty document: one empty paragraph on an A4 page with margins of 2.54 cm, and the styles
/// that Word users expect. The main part comes first and a source before its targets.
std::vector<SeedPart> newDocumentParts();

}  // namespace mergeloom::embedded
