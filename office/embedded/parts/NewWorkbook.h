#pragma once

#include "office/embedded/parts/SeedPart.h"

#include <vector>

namespace mergeloom::embedded {

/// The parts of an empty workbook: one sheet, "Sheet1", with nothing in it, and the styles that Excel users
/// expect. The main part comes first and a source before its targets; the workbook's first target is the
/// sheet, which it knows as "rId1".
std::vector<SeedPart> newWorkbookParts();

}  // namespace mergeloom::embedded
