#include "office/libreoffice/session/UserProfile.h"

#include "base/Paths.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace mergeloom::libreoffice {

namespace {

/// The number of windows whose profiles are kept at the same time.
constexpr int kMaxProfiles = 20;

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

/// Returns the folder of all profiles; empty when the user has no home.
std::string folderOfProfiles() {
    const std::string configured = variable("XDG_CONFIG_HOME");
    // The standard for these folders requires that a relative path is ignored.
    if (configured.starts_with('/')) return joinPath(configured, "mergeloom/office");
    const std::string home = variable("HOME");
    return home.starts_with('/') ? joinPath(home, ".config/mergeloom/office") : std::string();
}

}  // namespace

UserProfile::UserProfile() {
    const std::string folder = folderOfProfiles();
    if (folder.empty()) return;
    for (int number = 1; number <= kMaxProfiles; ++number)
        if (take(joinPath(folder, std::to_string(number)))) return;
}

bool UserProfile::take(const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    constexpr mode_t kMode = 0600;
    // The office inherits it, since it may outlive this process for a moment.
    lock_ = ::open(joinPath(folder, "lock").c_str(), O_RDWR | O_CREAT | O_NOFOLLOW, kMode);
    if (lock_ < 0) return false;
    if (::flock(lock_, LOCK_EX | LOCK_NB) == 0) {
        path_ = folder;
        return true;
    }
    ::close(lock_);
    lock_ = -1;
    return false;
}

void UserProfile::endSharing() const {
    if (lock_ >= 0) ::fcntl(lock_, F_SETFD, FD_CLOEXEC);
}

UserProfile::~UserProfile() {
    if (lock_ >= 0) ::close(lock_);
}

}  // namespace mergeloom::libreoffice
