#include "base/TemporaryFile.h"

#include "base/AutomationError.h"
#include "base/Paths.h"
#include "base/SystemError.h"
#include "base/SystemFiles.h"

#include <fcntl.h>

namespace mergeloom {

namespace {

constexpr std::size_t kBufferSize = 65536;
constexpr int kMaxNames = 1000;
constexpr mode_t kModeOfNewFile = 0666;
constexpr mode_t kPrivateMode = 0600;

/// The name does not depend on the target's, which may already have the maximum length.
std::string temporaryName(int number) {
    return ".mergeloom-" + std::to_string(processNumber()) + "-" + std::to_string(number) + ".tmp";
}

/// A folder held open so that its entries can be flushed to the disk.
class OpenFolder {
  public:
    OpenFolder(FileSystemCalls& calls, const std::string& path)
        : calls_(calls), folder_(repeatInterrupted([&] { return calls.openFolder(path.c_str()); })) {}
    OpenFolder(const OpenFolder&) = delete;
    OpenFolder& operator=(const OpenFolder&) = delete;
    ~OpenFolder() {
        if (isOpen()) calls_.close(folder_);
    }

    [[nodiscard]] bool isOpen() const { return folder_ >= 0; }
    /// Some file systems return EINVAL for folders, since they flush entries themselves.
    bool synchronise() {
        return repeatInterrupted([this] { return calls_.fsync(folder_); }) == 0 || errno == EINVAL;
    }
    bool synchroniseFileSystem() {
        return repeatInterrupted([this] { return calls_.syncfs(folder_); }) == 0;
    }

  private:
    FileSystemCalls& calls_;
    int folder_;
};

}  // namespace

TemporaryFile::TemporaryFile(FileSystemCalls& calls, const std::string& target, std::optional<mode_t> mode)
    : calls_(calls), target_(target), folder_(parentFolder(target)) {
    if (folder_.empty()) folder_ = ".";
    buffer_.reserve(kBufferSize);
    create(mode ? kPrivateMode : kModeOfNewFile);
    if (mode) setMode(*mode);
}

TemporaryFile::~TemporaryFile() {
    remove();
}

void TemporaryFile::remove() {
    if (file_ >= 0) calls_.close(file_);
    if (!path_.empty()) calls_.unlink(path_.c_str());
}

void TemporaryFile::create(mode_t mode) {
    for (int number = 0; number < kMaxNames; ++number) {
        const std::string path = joinPath(folder_, temporaryName(number));
        const int flags = O_WRONLY | O_CREAT | O_EXCL;
        file_ = repeatInterrupted([&] { return calls_.open(path.c_str(), flags, mode); });
        if (file_ >= 0) {
            path_ = path;
            return;
        }
        if (errno != EEXIST) fail(errno);
    }
    fail(EEXIST);
}

void TemporaryFile::setMode(mode_t mode) {
    if (calls_.fchmod(file_, mode) == 0) return;
    const int error = errno;
    remove();  // no destructor follows a constructor that fails
    fail(error);
}

void TemporaryFile::write(std::span<const char> bytes) {
    if (buffer_.size() + bytes.size() > kBufferSize) flush();
    const std::string_view text(bytes.data(), bytes.size());
    if (text.size() > kBufferSize) return writeThrough(text);
    buffer_.append(text);
}

void TemporaryFile::flush() {
    writeThrough(buffer_);
    buffer_.clear();
}

void TemporaryFile::writeThrough(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto write = [&] { return calls_.write(file_, bytes.data(), bytes.size()); };
        const ssize_t written = repeatInterrupted(write);
        if (written <= 0) fail(written < 0 ? errno : EIO);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void TemporaryFile::replaceTarget() {
    flush();
    if (repeatInterrupted([this] { return calls_.fsync(file_); }) < 0) fail(errno);
    closeFile();
    OpenFolder folder(calls_, folder_);
    if (!folder.isOpen()) fail(errno);
    if (calls_.rename(path_.c_str(), target_.c_str()) < 0) fail(errno);
    path_.clear();
    if (!folder.synchronise()) raiseNotConfirmed(target_, errno);
}

void TemporaryFile::replaceTargetUnflushed() {
    flush();
    closeFile();
    if (calls_.rename(path_.c_str(), target_.c_str()) < 0) fail(errno);
    path_.clear();
}

void TemporaryFile::closeFile() {
    // Even after a failed close the number is free and may already have been reused.
    const int file = file_;
    file_ = -1;
    if (calls_.close(file) < 0 && errno != EINTR) fail(errno);
}

void TemporaryFile::fail(int error) const {
    raiseNotSaved(target_, error);
}

void synchroniseFileSystem(FileSystemCalls& calls, const std::string& folder, const std::string& file) {
    OpenFolder opened(calls, folder.empty() ? "." : folder);
    if (!opened.isOpen() || !opened.synchroniseFileSystem()) raiseNotConfirmed(file, errno);
}

}  // namespace mergeloom
