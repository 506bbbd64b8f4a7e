#pragma once

#include "office/embedded/excel/WorkbookContent.h"

#include <string>

namespace mergeloom::embedded {

/// The formula of a name (without "=") for what a caller gives as RefersToLocal: cells without a sheet are
/// those of the active sheet. Raises kApplicationDefined for what is no formula, and for cells without a
/// sheet while the active sheet has none.
std::string nameFormula(const WorkbookContent& content, const std::string& refersToLocal);

}  // namespace mergeloom::embedded
