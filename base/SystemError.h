#pragma once

#include <cerrno>
#include <string>

/// Translates the system's error numbers (errno) to sentences for users.
namespace mergeloom {

/// Repeats a system call that a signal interrupted.
template <typename Call>
auto repeatInterrupted(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// Raises kFileCouldNotBeRead with a sentence that names the file and the reason.
[[noreturn]] void raiseNotRead(const std::string& path, int error);
/// Raises kFileCouldNotBeSaved with a sentence that names the file and the reason.
[[noreturn]] void raiseNotSaved(const std::string& path, int error);
[[noreturn]] void raiseNotSaved(const std::string& path, const std::string& reason);
/// Raises kFileCouldNotBeSaved for a file that is complete but may be lost when the power fails now.
[[noreturn]] void raiseNotConfirmed(const std::string& path, int error);

}  // namespace mergeloom
