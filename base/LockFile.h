#pragma once

#include <cstdint>
#include <string>

namespace mergeloom {

/// The user of this process.
struct SystemUser {
    std::string realName;
    std::string name;
};

SystemUser systemUser();
/// Returns the name of this computer.
std::string hostName();

enum class LockFileState { New, LeftBehind };

/// A small file that this process locks as long as it is open, which shows other processes that it runs.
class LockFile {
  public:
    LockFile() = default;
    /// Makes a new file, or opens one that a dead process left. Is not open when that is impossible or
    /// another process has it locked.
    LockFile(const std::string& path, LockFileState state);
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;
    LockFile(LockFile&& other) noexcept;
    LockFile& operator=(LockFile&&) = delete;
    /// Removes the file if its name still leads to it.
    ~LockFile();

    [[nodiscard]] bool isOpen() const { return file_ != kNone; }
    /// Replaces the content.
    void write(const std::string& text);

  private:
    static constexpr std::intptr_t kNone = -1;

    std::string path_;
    std::intptr_t file_ = kNone;  ///< the system's number or handle
};

}  // namespace mergeloom
