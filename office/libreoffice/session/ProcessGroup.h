#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// Raises kNotAvailable with the reason why LibreOffice could not be started, a clause without a full stop.
[[noreturn]] void raiseNotStarted(const std::string& reason);

/// A program that runs in a session and process group of its own, with all processes that it starts. The
/// number of the group is not freed before the end of this object's life, so a signal never reaches a
/// stranger.
class ProcessGroup {
  public:
    /// Starts the command, which is searched in the path. Its input is the file descriptor; its output and
    /// its errors are appended to the log. Raises kNotAvailable when the system cannot start it.
    ProcessGroup(const std::vector<std::string>& command, int input, const std::string& log);
    ProcessGroup(const ProcessGroup&) = delete;
    ProcessGroup& operator=(const ProcessGroup&) = delete;
    /// Kills the processes that still run.
    ~ProcessGroup();

    /// Returns the number of the group and of its first process.
    [[nodiscard]] pid_t id() const { return id_; }
    /// Returns true if the first process runs.
    [[nodiscard]] bool isRunning() const;
    /// Returns the numbers of its running processes.
    [[nodiscard]] std::vector<pid_t> members() const;
    /// Waits until no process of the group runs; returns false when one still runs after the time.
    [[nodiscard]] bool waitForEnd(std::chrono::milliseconds bound) const;
    /// Sends all processes of the group a signal; may be called by any thread.
    void signal(int number) const;

  private:
    pid_t id_ = 0;
};

}  // namespace mergeloom::libreoffice
