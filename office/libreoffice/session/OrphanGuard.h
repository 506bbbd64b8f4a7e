#pragma once

#include "office/libreoffice/session/Leash.h"
#include "office/libreoffice/session/ProcessGroup.h"

#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// A small process that outlives this one in order to clean up behind it: when this process ends without
/// having dismissed the guard, whatever ended it, the guard kills a process group and removes files.
class OrphanGuard {
  public:
    /// What the guard has to say goes to the log. Raises kNotAvailable when it cannot be started.
    OrphanGuard(pid_t group, const std::vector<std::string>& leftovers, const std::string& log);
    /// Dismisses the guard.
    ~OrphanGuard();
    /// Until the next call, the files whose paths from the root begin so are to be removed as well.
    void lookAfter(const std::vector<std::string>& beginnings) const;
    OrphanGuard(const OrphanGuard&) = delete;
    OrphanGuard& operator=(const OrphanGuard&) = delete;

  private:
    Leash leash_;
    ProcessGroup process_;
};

}  // namespace mergeloom::libreoffice
