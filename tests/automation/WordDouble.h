#pragma once

#include "automation/DoubleObject.h"
#include "office/model/word/Application.h"

#include <functional>

namespace mergeloom::automation {

/// Returns an Application object with Word's own member names, parameters and error numbers. Its members call
/// another office, such as the embedded one. Further members can be given. The function is called when the
/// application quits.
DispatchPtr makeWordDouble(const word::ApplicationPtr& office, Members furtherMembers,
                           std::function<void()> quit);

}  // namespace mergeloom::automation
