#include "office/com/automation/AutomationObject.h"

#include "base/AutomationError.h"

namespace mergeloom::com {

AutomationObject AutomationObject::madeOf(const char* className, const char* member,
                                          const Value& found) const {
    const DispatchPtr object = found.object();
    if (object) return {session_, object, className};
    throw AutomationError(
        kObjectDeleted, session_->officeName() + " has nothing for '" + member + "' of " + className_ + ".");
}

std::vector<AutomationObject> AutomationObject::items(const char* itemClass) const {
    std::vector<AutomationObject> found;
    for (DispatchPtr& item : session_->enumerate(*object_, className_))
        found.emplace_back(session_, std::move(item), itemClass);
    return found;
}

}  // namespace mergeloom::com
