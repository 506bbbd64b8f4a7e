#pragma once

#include "describe/ReaderPipe.h"

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace mergeloom::describe {

/// A separate process that reads a database file, so that a crash of its library does not end this process.
///
/// Writes its messages to kReaderDescriptor and has no other streams. The destructor ends it.
class ReaderProcess {
  public:
    /// Raises kNotAvailable if the program is not installed or cannot be started.
    ReaderProcess(const std::string& program, const std::vector<std::string>& arguments);
    ReaderProcess(const ReaderProcess&) = delete;
    ReaderProcess& operator=(const ReaderProcess&) = delete;
    ~ReaderProcess();

    /// Returns the next message, or none after the last one. Raises kFileCouldNotBeRead with the reason that
    /// the process sent or, if it ended early, with a general one. Raises kCommandFailed if this process was
    /// asked to end.
    std::optional<Message> next();
    /// Reads the parts of the message.
    [[nodiscard]] PipeReader& parts() { return parts_; }

  private:
    int descriptor_ = -1;
    pid_t process_ = -1;
    PipeReader parts_;
};

}  // namespace mergeloom::describe
