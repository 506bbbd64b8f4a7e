#include "base/DocumentLock.h"

#include "base/FileLock.h"
#include "base/Paths.h"
#include "base/SystemError.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>
#include <vector>

namespace mergeloom {

namespace {

/// The fields of the line, in their order.
enum Field { RealName, User, Host, Since, Profile, kFields };
using Line = std::vector<std::string>;

/// In place of the profile of an office, the number of our process follows.
constexpr std::string_view kOurProfile = "mergeloom:";

/// Follows links, so that two names of a document have one lock.
std::string lockFileOf(const std::string& document) {
    std::error_code error;
    const std::filesystem::path target = std::filesystem::weakly_canonical(document, error);
    const std::string path = error ? fullPath(document) : target.string();
    return joinPath(parentFolder(path), ".~lock." + fileNameOnly(path) + "#");
}

std::string hostName() {
    std::array<char, 256> name{};
    return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

std::string timeNow() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    std::array<char, 32> text{};
    ::localtime_r(&now, &local);
    return {text.data(), std::strftime(text.data(), text.size(), "%d.%m.%Y %H:%M", &local)};
}

Line ourLine() {
    Line line(kFields);
    if (const passwd* const user = ::getpwuid(::getuid())) {
        line[RealName] = user->pw_gecos == nullptr ? "" : user->pw_gecos;
        // Room and telephone numbers follow the name.
        line[RealName] = line[RealName].substr(0, line[RealName].find(','));
        line[User] = user->pw_name;
    }
    line[Host] = hostName();
    line[Since] = timeNow();
    line[Profile] = std::string(kOurProfile) + std::to_string(::getpid());
    return line;
}

std::string textOf(const Line& line) {
    std::string text;
    for (const std::string& field : line) {
        if (&field != &line.front()) text += ',';
        for (const char letter : field) {
            if (letter == ',' || letter == ';' || letter == '\\') text += '\\';
            text += letter;
        }
    }
    return text + ';';
}

Line lineOf(std::string_view text) {
    Line line(1);
    for (std::size_t at = 0; at < text.size() && text[at] != ';'; ++at) {
        if (text[at] == ',') {
            line.emplace_back();
            continue;
        }
        if (text[at] == '\\' && at + 1 < text.size()) ++at;
        line.back() += text[at];
    }
    line.resize(kFields);
    return line;
}

Line readLine(const std::string& lockFile) {
    std::ifstream file(lockFile, std::ios::binary);
    return lineOf(std::string(std::istreambuf_iterator<char>(file), {}));
}

bool isOurProgram(const Line& line) {
    return line[Profile].starts_with(kOurProfile) && line[Host] == hostName();
}

/// Returns true if the owner is this process or one that has died; the living have locked the lock file.
bool hinders(const std::string& lockFile, const Line& line) {
    if (!isOurProgram(line)) return true;
    return line[Profile] != ourLine()[Profile] && isLockedByAnother(lockFile);
}

bool isSameFile(int file, const std::string& path) {
    struct stat opened {};
    struct stat named {};
    return ::fstat(file, &opened) == 0 && ::stat(path.c_str(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

/// Opens and locks a new lock file, or one that a dead process of this program left; -1 when there is
/// another.
int openLockFile(const std::string& path) {
    constexpr mode_t kMode = 0644;
    const bool isLeft = fileExists(path);
    if (isLeft && !isOurProgram(readLine(path))) return -1;
    const int flags = O_RDWR | O_CLOEXEC | O_NOFOLLOW | (isLeft ? 0 : O_CREAT | O_EXCL);
    const int file = ::open(path.c_str(), flags, kMode);
    if (file < 0) return -1;
    if (::flock(file, LOCK_EX | LOCK_NB) == 0 && isSameFile(file, path)) return file;
    ::close(file);
    return -1;
}

bool write(int file, const std::string& text) {
    return ::ftruncate(file, 0) == 0 && repeatInterrupted([&] {
                                            return ::write(file, text.data(), text.size());
                                        }) == static_cast<ssize_t>(text.size());
}

}  // namespace

std::optional<LockOwner> otherLockOwner(const std::string& document) {
    const std::string lockFile = lockFileOf(document);
    if (!fileExists(lockFile)) return {};
    const Line line = readLine(lockFile);
    if (!hinders(lockFile, line)) return {};
    return LockOwner{line[RealName].empty() ? line[User] : line[RealName], line[Host], line[Since]};
}

DocumentLock::DocumentLock(const std::string& document)
    : path_(lockFileOf(document)), file_(openLockFile(path_)) {
    // A lock without an owner still hinders others.
    if (file_ >= 0) (void)write(file_, textOf(ourLine()));
}

DocumentLock::~DocumentLock() {
    if (file_ < 0) return;
    if (isSameFile(file_, path_)) ::unlink(path_.c_str());
    ::close(file_);
}

bool DocumentLock::isOf(const std::string& document) const {
    return lockFileOf(document) == path_;
}

}  // namespace mergeloom
