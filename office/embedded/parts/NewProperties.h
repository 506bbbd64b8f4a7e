#pragma once

#include "office/embedded/parts/SeedPart.h"

#include <vector>

namespace mergeloom::embedded {

/// The properties of a new document (ECMA-376 Part 2, 8; Part 1, 22.2), without a date and an author.
std::vector<SeedPart> newPropertyParts();

}  // namespace mergeloom::embedded
