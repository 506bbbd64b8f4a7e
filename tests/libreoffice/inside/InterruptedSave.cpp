// Preloaded into the designer and its offices. Makes a file operation fail, or kills its process before it.
// The environment variable MERGELOOM_TEST_FAULT names a file with one line "WHO CALL FOLDER EFFECT": who is
// "program", "shown" or "hidden" (an office), the call "open", "write", "fsync" or "rename", the folder that
// of the files, and the effect "kill" or "full" (ENOSPC). Without the file nothing fails.

#include <dlfcn.h>
#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace {

struct Fault {
    std::string who;
    std::string call;
    std::string folder;
    std::string effect;
};

/// True during the library's own reads, which would call it again.
thread_local bool isReading = false;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

Fault wantedFault() {
    Fault fault;
    const char* const path = std::getenv("MERGELOOM_TEST_FAULT");
    if (path == nullptr || ::access(path, R_OK) != 0) return fault;
    std::ifstream(path) >> fault.who >> fault.call >> fault.folder >> fault.effect;
    return fault;
}

std::string ownCommand() {
    std::ifstream file("/proc/self/cmdline");
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Returns who this process is: it may have been started by another program, which has the same name for a
/// moment.
std::string who() {
    const std::string command = ownCommand();
    if (command.find("mergeloom-designer") < command.find('\0')) return "program";
    if (command.find("soffice.bin") == std::string::npos) return "";
    return command.find("--headless") == std::string::npos ? "shown" : "hidden";
}

std::string pathOf(int file) {
    std::array<char, PATH_MAX> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    return length < 0 ? std::string() : std::string(path.data(), static_cast<std::size_t>(length));
}

/// Returns true if the call fails. Its own file that no user sees, such as a lock, is left out.
bool failsAt(std::string_view call, const std::string& path) {
    const Fault fault = wantedFault();
    if (fault.call != call || path.find("/.~lock.") != std::string::npos) return false;
    if (!path.starts_with(fault.folder + "/") || fault.who != who()) return false;
    if (fault.effect == "kill") ::kill(::getpid(), SIGKILL);
    errno = ENOSPC;
    return true;
}

template <typename Path>
bool fails(std::string_view call, const Path& path) {
    if (isReading) return false;
    isReading = true;
    const bool isFailing = failsAt(call, path());
    isReading = false;
    return isFailing;
}

template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

bool failsToOpen(const char* path, int flags) {
    const bool isNew = (flags & O_CREAT) != 0;
    return isNew && fails("open", [path] { return std::string(path); });
}

bool failsToWrite(int file) {
    return fails("write", [file] { return pathOf(file); });
}

}  // namespace

extern "C" {

// NOLINTBEGIN(cert-dcl50-cpp): the signatures are those of the C library.
int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    if (failsToOpen(path, flags)) return -1;
    return next<int(const char*, int, ...)>("open")(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    if (failsToOpen(path, flags)) return -1;
    return next<int(const char*, int, ...)>("open64")(path, flags, mode);
}
// NOLINTEND(cert-dcl50-cpp)

ssize_t write(int file, const void* bytes, size_t count) {
    if (failsToWrite(file)) return -1;
    return next<ssize_t(int, const void*, size_t)>("write")(file, bytes, count);
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t offset) {
    if (failsToWrite(file)) return -1;
    return next<ssize_t(int, const void*, size_t, off_t)>("pwrite")(file, bytes, count, offset);
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t offset) {
    if (failsToWrite(file)) return -1;
    return next<ssize_t(int, const void*, size_t, off64_t)>("pwrite64")(file, bytes, count, offset);
}

int fsync(int file) {
    if (fails("fsync", [file] { return pathOf(file); })) return -1;
    return next<int(int)>("fsync")(file);
}

int rename(const char* from, const char* to) {
    if (fails("rename", [from] { return std::string(from); })) return -1;
    return next<int(const char*, const char*)>("rename")(from, to);
}

}  // extern "C"
