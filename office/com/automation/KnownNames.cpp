#include "office/com/automation/KnownNames.h"

#include "base/Text.h"

namespace mergeloom::com {

bool KnownNames::mayHave(const std::string& name) {
    if (!isRead_) {
        for (const AutomationObject& item : collection_.items(itemClass_))
            add(item.get("Name").text());
        isRead_ = true;
    }
    return names_.contains(foldCase(name));
}

void KnownNames::add(const std::string& name) {
    names_.insert(foldCase(name));
}

}  // namespace mergeloom::com
