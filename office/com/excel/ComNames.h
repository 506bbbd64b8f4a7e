#pragma once

#include "office/com/automation/AutomationObject.h"
#include "office/model/excel/Forward.h"

namespace mergeloom::com {

/// Returns the names of a workbook and of its sheets.
excel::NamesPtr makeNames(const AutomationObject& application, const AutomationObject& workbook);

}  // namespace mergeloom::com
