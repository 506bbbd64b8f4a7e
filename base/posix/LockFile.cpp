#include "base/LockFile.h"

#include "base/SystemError.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace mergeloom {

namespace {

bool isSameFile(int file, const std::string& path) {
    struct stat opened {};
    struct stat named {};
    return ::fstat(file, &opened) == 0 && ::stat(path.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

/// Returns the number of the file, which is open and locked; -1 when there is another owner.
int openLockFile(const std::string& path, LockFileState state) {
    constexpr mode_t kMode = 0644;
    const int creation = state == LockFileState::New ? O_CREAT | O_EXCL : 0;
    const int file = ::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | creation, kMode);
    if (file < 0) return -1;
    if (::flock(file, LOCK_EX | LOCK_NB) == 0 && isSameFile(file, path)) return file;
    ::close(file);
    return -1;
}

}  // namespace

SystemUser systemUser() {
    const passwd* const user = ::getpwuid(::getuid());
    if (user == nullptr) return {};
    const std::string realName = user->pw_gecos == nullptr ? "" : user->pw_gecos;
    // Room and telephone numbers follow the name.
    return {realName.substr(0, realName.find(',')), user->pw_name};
}

std::string hostName() {
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

LockFile::LockFile(const std::string& path, LockFileState state)
    : path_(path), file_(openLockFile(path, state)) {}

LockFile::LockFile(LockFile&& other) noexcept
    : path_(std::move(other.path_)), file_(std::exchange(other.file_, kNone)) {}

LockFile::~LockFile() {
    if (!isOpen()) return;
    const int file = static_cast<int>(file_);
    if (isSameFile(file, path_)) ::unlink(path_.c_str());
    ::close(file);
}

void LockFile::write(const std::string& text) {
    const int file = static_cast<int>(file_);
    if (::ftruncate(file, 0) != 0) return;
    // A lock without an owner still hinders others.
    (void)repeatInterrupted([&] { return ::write(file, text.data(), text.size()); });
}

}  // namespace mergeloom
