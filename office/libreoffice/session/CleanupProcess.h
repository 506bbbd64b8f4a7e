#pragma once

#include "office/libreoffice/session/LifelinePipe.h"
#include "office/libreoffice/session/ProcessGroup.h"

#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// Files that an office leaves in a folder of the user's when it is killed. Paths from the root.
struct Fragments {
    std::vector<std::string> files;
    /// Of the paths of files that the office names itself, up to the number of its process.
    std::vector<std::string> beginnings;
    std::vector<std::string> kept;  ///< begin so, but were there before
};

/// A small process that outlives this one in order to clean up behind it: when this process ends without
/// having dismissed the guard, whatever ended it, the guard kills a process group and removes files.
class CleanupProcess {
  public:
    /// What the guard has to say goes to the log. Raises kNotAvailable when it cannot be started.
    CleanupProcess(pid_t group, const std::vector<std::string>& leftovers, const std::string& log);
    /// Dismisses the guard.
    ~CleanupProcess();
    /// Until the next call, these are to be removed as well.
    void lookAfter(const Fragments& fragments) const;
    /// Removes these now; returns when it is done.
    void sweep() const;
    CleanupProcess(const CleanupProcess&) = delete;
    CleanupProcess& operator=(const CleanupProcess&) = delete;

  private:
    LifelinePipe lifeline_;
    ProcessGroup process_;
};

}  // namespace mergeloom::libreoffice
