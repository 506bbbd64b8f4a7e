#pragma once

#include "office/libreoffice/session/LifelinePipe.h"
#include "office/libreoffice/session/ProcessGroup.h"

#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// The files that an office leaves in a folder of the user's when it is killed. Paths are absolute.
struct Fragments {
    std::vector<std::string> files;
    /// Beginnings of the paths of files that the office names itself, up to the number of its process.
    std::vector<std::string> beginnings;
    std::vector<std::string> kept;  ///< begin so, but existed before
};

/// A small process that outlives this one in order to clean up after it: when this process ends, for whatever
/// reason, without having ended the cleanup, it kills a process group and removes files.
class CleanupProcess {
  public:
    /// Starts it. Its own errors go to the log. Raises kNotAvailable when it cannot be started.
    CleanupProcess(pid_t group, const std::vector<std::string>& leftovers, const std::string& log);
    /// Ends it without any cleanup.
    ~CleanupProcess();
    /// Replaces the files that are to be removed as well.
    void lookAfter(const Fragments& fragments) const;
    /// Removes these files now; returns when it is done.
    void sweep() const;
    CleanupProcess(const CleanupProcess&) = delete;
    CleanupProcess& operator=(const CleanupProcess&) = delete;

  private:
    LifelinePipe lifeline_;
    ProcessGroup process_;
};

}  // namespace mergeloom::libreoffice
