#pragma once

#include "office/embedded/parts/InitialPart.h"

#include <vector>

namespace mergeloom::embedded {

/// Returns the parts of an empty workbook: one empty sheet, "Sheet1", and the styles that Excel users expect.
/// The main part comes first and a source before its targets; the workbook's first target is the sheet, to
/// which it refers as "rId1".
std::vector<InitialPart> newWorkbookParts();

}  // namespace mergeloom::embedded
