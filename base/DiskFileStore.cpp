#include "base/DiskFileStore.h"

#include "base/Paths.h"
#include "base/SystemError.h"
#include "base/TemporaryFile.h"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <utility>

namespace mergeloom {

namespace {

constexpr int kMaxLinks = 40;
constexpr std::size_t kMinGrowth = 65536;
/// Longer than the longest path of any system.
constexpr std::size_t kMaxLinkTarget = 65536;
constexpr mode_t kPermissionBits = 07777;

/// A file open for reading.
class OpenFile {
  public:
    OpenFile(FileSystemCalls& calls, const std::string& path)
        : calls_(calls),
          path_(path),
          file_(repeatInterrupted([&] { return calls.open(path.c_str(), O_RDONLY, 0); })) {
        if (file_ < 0) raiseNotRead(path, errno);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() { calls_.close(file_); }

    /// Reads to the end of the file, whatever its actual size is; the expected size saves reallocations.
    std::string readAll(std::size_t expectedSize) {
        // One byte more, so that the end is found without growing.
        std::string bytes(expectedSize + 1, '\0');
        for (std::size_t filled = 0;;) {
            if (filled == bytes.size()) bytes.resize(filled + std::max(filled, kMinGrowth));
            const std::size_t count = readInto(bytes.data() + filled, bytes.size() - filled);
            filled += count;
            if (count > 0) continue;
            bytes.resize(filled);
            return bytes;
        }
    }

  private:
    std::size_t readInto(char* bytes, std::size_t count) {
        const ssize_t taken = repeatInterrupted([&] { return calls_.read(file_, bytes, count); });
        if (taken < 0) raiseNotRead(path_, errno);
        return static_cast<std::size_t>(taken);
    }

    FileSystemCalls& calls_;
    std::string path_;
    int file_;
};

}  // namespace

bool DiskFileStore::fileExists(const std::string& path) {
    struct stat status {};
    return calls_.stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

std::string DiskFileStore::read(const std::string& path) {
    struct stat status {};
    if (calls_.stat(path.c_str(), &status) < 0) raiseNotRead(path, errno);
    const std::size_t size = S_ISREG(status.st_mode) ? static_cast<std::size_t>(status.st_size) : 0;
    return OpenFile(calls_, path).readAll(size);
}

void DiskFileStore::save(const std::string& path, const std::function<void(ByteSink&)>& writer) {
    const std::string target = followLinks(path);
    TemporaryFile file(calls_, target, modeOf(target));
    writer(file);
    file.replaceTarget();
}

void DiskFileStore::checkFolder(const std::string& path) {
    const std::string folder = parentFolder(path);
    if (calls_.access(folder.empty() ? "." : folder.c_str(), kMayWrite | kMayEnter) < 0)
        raiseNotSaved(path, errno);
}

void DiskFileStore::saveInBatch(const std::string& path, const std::function<void(ByteSink&)>& writer) {
    if (!calls_.flushesFileSystems()) return save(path, writer);
    const std::string target = followLinks(path);
    TemporaryFile file(calls_, target, modeOf(target));
    writer(file);
    file.replaceTargetUnflushed();
    const std::scoped_lock lock(batchMutex_);
    batch_.emplace(parentFolder(target), target);
}

void DiskFileStore::finishBatch() {
    const std::map<std::string, std::string> batch = std::exchange(batch_, {});
    for (const auto& [folder, file] : batch)
        synchroniseFileSystem(calls_, folder, file);
}

void DiskFileStore::copy(const std::string& from, const std::string& to) {
    const std::string bytes = read(from);
    struct stat status {};
    if (calls_.stat(from.c_str(), &status) < 0) raiseNotRead(from, errno);
    TemporaryFile file(calls_, followLinks(to), status.st_mode & kPermissionBits);
    file.write(bytes);
    file.replaceTarget();
}

std::string DiskFileStore::followLinks(const std::string& path) {
    std::string target = path;
    for (int links = 0; links < kMaxLinks; ++links) {
        const std::optional<std::string> next = readLink(target);
        if (!next) return target;
        target = isAbsolutePath(*next) ? *next : joinPath(parentFolder(target), *next);
    }
    raiseNotSaved(path, ELOOP);
}

std::optional<std::string> DiskFileStore::readLink(const std::string& path) {
    std::array<char, kMaxLinkTarget> target;  // not filled before: a save calls this each time
    const ssize_t length = calls_.readlink(path.c_str(), target.data(), target.size());
    if (length >= 0) return std::string(target.data(), static_cast<std::size_t>(length));
    const bool isNoLink = errno == EINVAL || errno == ENOENT;
    if (!isNoLink) raiseNotSaved(path, errno);
    return std::nullopt;
}

/// Returns the permissions of the file that is to be replaced; none when there is no file yet.
std::optional<mode_t> DiskFileStore::modeOf(const std::string& path) {
    struct stat status {};
    if (calls_.stat(path.c_str(), &status) < 0) {
        if (errno == ENOENT) return std::nullopt;
        raiseNotSaved(path, errno);
    }
    if (S_ISDIR(status.st_mode)) raiseNotSaved(path, EISDIR);
    if (!S_ISREG(status.st_mode)) raiseNotSaved(path, "it is a device");
    // A rename needs only the folder's permission, so a write-protected file has to be checked here.
    if (calls_.access(path.c_str(), kMayWrite) == 0) return status.st_mode & kPermissionBits;
    if (errno == EBUSY) raiseNotSaved(path, EBUSY);
    raiseNotSaved(path, "it is write-protected");
}

}  // namespace mergeloom
