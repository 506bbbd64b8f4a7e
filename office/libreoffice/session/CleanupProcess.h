#pragma once

#include "office/libreoffice/session/ProcessGroup.h"

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace mergeloom::libreoffice {

/// A pipe to the input of another process. Its input ends when this process ends for any reason, since no
/// other process has this end of the pipe.
class LifelinePipe {
  public:
    /// Raises kNotAvailable if the system has no pipe left.
    LifelinePipe();
    LifelinePipe(const LifelinePipe&) = delete;
    LifelinePipe& operator=(const LifelinePipe&) = delete;
    ~LifelinePipe();

    /// Returns the descriptor for the other process's input.
    [[nodiscard]] int farEnd() const { return ends_[1]; }
    /// Closes the far end in this process, after the other process was started.
    void closeFarEnd();
    /// Sends the line; does nothing if the other process has ended.
    void send(std::string_view line) const;
    /// Waits until the other process sends a line back or has ended, or the time is over.
    void waitForLine(std::chrono::milliseconds bound) const;

  private:
    int ends_[2] = {-1, -1};
};

/// The files that an office leaves in a user's folder when it is killed. Paths are absolute.
struct PartialFiles {
    std::vector<std::string> files;
    /// Beginnings of the paths of files that the office names itself, up to the number of its process.
    std::vector<std::string> beginnings;
    std::vector<std::string> kept;  ///< files with such a beginning that existed before
};

/// A small process that outlives this one to clean up after it: when this process ends for any reason without
/// ending the cleanup, it kills a process group and removes files.
class CleanupProcess {
  public:
    /// Starts it. Its own errors go to the log. Raises kNotAvailable when it cannot be started.
    CleanupProcess(pid_t group, const std::vector<std::string>& leftovers, const std::string& log);
    /// Ends it without any cleanup.
    ~CleanupProcess();
    /// Replaces the list of partial files, which the cleanup removes, too.
    void setPartialFiles(const PartialFiles& partial) const;
    /// Removes the partial files now; returns when they are removed.
    void removePartialFiles() const;
    CleanupProcess(const CleanupProcess&) = delete;
    CleanupProcess& operator=(const CleanupProcess&) = delete;

  private:
    LifelinePipe lifeline_;
    ProcessGroup process_;
};

}  // namespace mergeloom::libreoffice
