#pragma once

#include "office/com/excel/ComExcelModel.h"
#include "office/model/excel/Forward.h"

namespace mergeloom::com {

/// Returns the names of a workbook and of its sheets.
excel::NamesPtr makeNames(const ComExcelModelPtr& model, const AutomationObject& workbook);

}  // namespace mergeloom::com
