#include "office/com/word/ComWordModel.h"

#include "base/AutomationError.h"

namespace mergeloom::com {

DispatchPtr ComWordModel::referenceOf(const word::Range& range) const {
    const auto found = ranges_.find(&range);
    if (found != ranges_.end()) return found->second;
    throw AutomationError(kCommandFailed, "The range belongs to another office.");
}

}  // namespace mergeloom::com
