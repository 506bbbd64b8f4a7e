#pragma once

#include "office/graft/ExportDifference.h"

namespace mergeloom::graft {

/// The rules for exports of Word documents. Stories are compared line by line, all other parts as a whole.
const PartRules& wordRules();

}  // namespace mergeloom::graft
