#pragma once

#include "automation/DoubleObject.h"
#include "office/model/excel/Application.h"

#include <functional>

namespace mergeloom::automation {

/// Returns an office's Application object under Excel's own member names, parameters and error numbers; what
/// the members do is done by another office, such as the embedded one. Further members can be given. The
/// function is called when the application quits.
DispatchPtr makeExcelDouble(const excel::ApplicationPtr& office, Members furtherMembers,
                            std::function<void()> quit);

}  // namespace mergeloom::automation
