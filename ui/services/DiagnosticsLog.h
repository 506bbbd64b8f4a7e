#pragma once

#include <cstddef>
#include <mutex>
#include <string>

namespace mergeloom {

/// The file that keeps what happened for whoever looks for a mistake: a line with the time (UTC) for each
/// event, the oldest lines given up when it grows beyond its limit. May be called by any thread. A log that
/// cannot be written stops nobody: the line is lost.
class DiagnosticsLog {
  public:
    static constexpr std::size_t kDefaultLimit = 512UL * 1024;

    /// The file diagnostics.log in the user's state folder.
    DiagnosticsLog();
    /// The limit is in bytes.
    explicit DiagnosticsLog(std::string path, std::size_t limit = kDefaultLimit);

    /// Line breaks and other control characters in the text become blanks.
    void append(const std::string& text);
    [[nodiscard]] const std::string& path() const { return path_; }

  private:
    void writeLine(const std::string& line);
    void giveUpOldest(std::size_t added);

    std::string path_;
    std::size_t limit_;
    std::mutex mutex_;
};

}  // namespace mergeloom
