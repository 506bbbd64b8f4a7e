#pragma once

#include <cstddef>
#include <string>

namespace mergeloom {

/// The file that keeps what happened for whoever looks for a mistake: a line with the time (UTC) for each
/// event, the older half of the lines given up when it would grow beyond its limit. Threads and processes may
/// share it. A log that cannot be written stops nobody: the line is lost.
class DiagnosticsLog {
  public:
    static constexpr std::size_t kDefaultLimit = 512UL * 1024;
    /// What is longer is cut.
    static constexpr std::size_t kMaxTextLength = 4096;

    /// The file diagnostics.log in the user's state folder.
    DiagnosticsLog();
    /// The limit is in bytes.
    explicit DiagnosticsLog(std::string path, std::size_t limit = kDefaultLimit)
        : path_(std::move(path)), limit_(limit) {}

    /// Line breaks and other control characters in the text become blanks.
    void append(const std::string& text);
    [[nodiscard]] const std::string& path() const { return path_; }

  private:
    std::string path_;
    std::size_t limit_;
};

}  // namespace mergeloom
