#pragma once

#include <cstddef>
#include <string>

namespace mergeloom {

/// The log file for whoever looks for a mistake: a line with the time (UTC) for each event. The older half of
/// the lines is removed when the file would grow beyond its limit. Threads and processes may share it. When
/// it cannot be written, the line is lost and the program goes on.
class DiagnosticsLog {
  public:
    static constexpr std::size_t kDefaultLimit = 512UL * 1024;
    /// Longer texts are cut.
    static constexpr std::size_t kMaxTextLength = 4096;

    /// Uses the file diagnostics.log in the user's state folder.
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

/// Returns the line of the log with the size in bytes of an installed file of the program; 0 if it is
/// missing.
std::string sizeLineOf(const std::string& fileName);

}  // namespace mergeloom
