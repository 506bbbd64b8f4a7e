#include "office/com/word/ComWordModel.h"

#include "base/AutomationError.h"

namespace mergeloom::com {

void ComWordModel::set(const word::Range& range, const DispatchPtr& reference) {
    remove(range);
    ranges_.emplace(&range, reference);
    ++owners_[reference.get()];
}

void ComWordModel::remove(const word::Range& range) {
    const auto found = ranges_.find(&range);
    if (found == ranges_.end()) return;
    const auto owners = owners_.find(found->second.get());
    if (--owners->second == 0) owners_.erase(owners);
    ranges_.erase(found);
}

bool ComWordModel::isShared(const DispatchPtr& reference) const {
    return owners_.at(reference.get()) > 1;
}

DispatchPtr ComWordModel::referenceOf(const word::Range& range) const {
    const auto found = ranges_.find(&range);
    if (found != ranges_.end()) return found->second;
    throw AutomationError(kCommandFailed, "The range belongs to another office.");
}

}  // namespace mergeloom::com
