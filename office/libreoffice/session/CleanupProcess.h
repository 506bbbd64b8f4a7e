#pragma once

#include "office/libreoffice/session/ProcessGroup.h"

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::libreoffice {

/// A pipe to the input of another process. The other process reads its end when this process ends, for
/// whatever reason, since no other process holds this end.
class LifelinePipe {
  public:
    /// Raises kNotAvailable when the system has no pipe left.
    LifelinePipe();
    LifelinePipe(const LifelinePipe&) = delete;
    LifelinePipe& operator=(const LifelinePipe&) = delete;
    ~LifelinePipe();

    /// Returns the descriptor that the other process is to get as its input.
    [[nodiscard]] int farEnd() const { return ends_[1]; }
    /// Closes the far end in this process, after the other process was started.
    void handOver();
    /// Sends the line; does nothing when the other process is gone.
    void send(std::string_view line) const;
    /// Waits until the other process sends a line back or is gone. Bounded in time.
    void waitForLine(std::chrono::milliseconds bound) const;

  private:
    int ends_[2] = {-1, -1};
};

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
