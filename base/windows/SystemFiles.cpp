#include "base/SystemFiles.h"

#include "base/Paths.h"
#include "base/windows/WindowsText.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <atomic>
#include <cerrno>

namespace mergeloom {

namespace {

constexpr int kMaxNames = 1000;

/// Makes a new file in the folder and opens it for this process alone. Returns INVALID_HANDLE_VALUE, with
/// errno, when the folder cannot be written.
HANDLE makeFile(const std::string& folder, const std::string& suffix, DWORD flags, std::string& path) {
    static std::atomic<int> next = 0;
    for (int tried = 0; tried < kMaxNames; ++tried) {
        path = joinPath(
            folder, ".mergeloom-" + std::to_string(processNumber()) + "-" + std::to_string(++next) + suffix);
        const HANDLE file = ::CreateFileW(windows::widePath(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0,
                                          nullptr, CREATE_NEW, flags, nullptr);
        if (file != INVALID_HANDLE_VALUE) return file;
        windows::setErrno();
        if (errno != EEXIST) break;
    }
    return INVALID_HANDLE_VALUE;
}

/// Returns null, with errno, for INVALID_HANDLE_VALUE and when there are too many open files.
std::FILE* streamOf(HANDLE file, int flags, const char* mode) {
    const int number = windows::fileNumber(file, flags);
    return number < 0 ? nullptr : ::_fdopen(number, mode);
}

}  // namespace

std::FILE* openToRead(const std::string& path) {
    // The C library's own routine would let nobody else write the file meanwhile.
    const HANDLE file = ::CreateFileW(windows::widePath(path).c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    std::FILE* const opened = streamOf(file, O_RDONLY, "rb");
    if (opened == nullptr && folderExists(path)) errno = EISDIR;
    return opened;
}

std::FILE* openScratchFile() {
    std::string path;
    constexpr DWORD kFlags = FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE;
    return streamOf(makeFile(temporaryFolder(), ".tmp", kFlags, path), O_RDWR, "w+b");
}

std::string makeUniqueFile(const std::string& folder, const std::string& suffix) {
    std::string path;
    const HANDLE file = makeFile(folder, suffix, FILE_ATTRIBUTE_NORMAL, path);
    if (file == INVALID_HANDLE_VALUE) return {};
    ::CloseHandle(file);
    return path;
}

std::int64_t processNumber() {
    return ::GetCurrentProcessId();
}

}  // namespace mergeloom
