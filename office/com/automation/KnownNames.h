#pragma once

#include "office/com/automation/AutomationObject.h"

#include <memory>
#include <set>
#include <string>

namespace mergeloom::com {

/// The names of a document at the first use, and those added since. Nobody else adds names to a document of a
/// hidden office, so a name that is not here does not exist, and no call is needed to find that out. Removed
/// names are still here.
class KnownNames {
  public:
    /// Takes the collection whose items have a property Name.
    KnownNames(AutomationObject collection, const char* itemClass)
        : collection_(std::move(collection)), itemClass_(itemClass) {}

    /// Returns false for a name that does not exist. Letter case does not count.
    bool mayHave(const std::string& name);
    void add(const std::string& name);
    /// Must be called after names may have been restored (Undo).
    void forget() { isRead_ = false; }

  private:
    AutomationObject collection_;
    const char* itemClass_;
    std::set<std::string> names_;  ///< case folded
    bool isRead_ = false;
};

using KnownNamesPtr = std::shared_ptr<KnownNames>;

}  // namespace mergeloom::com
