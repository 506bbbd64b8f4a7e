#include "base/windows/WindowsText.h"

#include "base/Text.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>

namespace mergeloom::windows {

namespace {

/// The maximum length of a folder's path, to which Windows must be able to append a short name.
constexpr std::size_t kLongestShortPath = 247;
constexpr std::wstring_view kLongPrefix = L"\\\\?\\";
constexpr std::wstring_view kLongShare = L"\\\\?\\UNC\\";
constexpr std::wstring_view kDevicePrefix = L"\\\\.\\";
constexpr std::wstring_view kShare = L"\\\\";

struct ErrorPair {
    DWORD windows;
    int posix;
};

constexpr ErrorPair kErrors[] = {
    {ERROR_FILE_NOT_FOUND, ENOENT},      {ERROR_PATH_NOT_FOUND, ENOENT},
    {ERROR_INVALID_NAME, ENOENT},        {ERROR_BAD_NETPATH, ENOENT},
    {ERROR_BAD_NET_NAME, ENOENT},        {ERROR_BAD_PATHNAME, ENOENT},
    {ERROR_INVALID_DRIVE, ENOENT},       {ERROR_DIRECTORY, ENOTDIR},
    {ERROR_ACCESS_DENIED, EACCES},       {ERROR_SHARING_VIOLATION, EBUSY},
    {ERROR_LOCK_VIOLATION, EBUSY},       {ERROR_USER_MAPPED_FILE, EBUSY},
    {ERROR_FILE_EXISTS, EEXIST},         {ERROR_ALREADY_EXISTS, EEXIST},
    {ERROR_DISK_FULL, ENOSPC},           {ERROR_HANDLE_DISK_FULL, ENOSPC},
    {ERROR_WRITE_PROTECT, EROFS},        {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
    {ERROR_INVALID_HANDLE, EBADF},       {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
    {ERROR_TOO_MANY_OPEN_FILES, EMFILE}, {ERROR_CANT_RESOLVE_FILENAME, ELOOP},
};

}  // namespace

std::wstring wideText(std::string_view text) {
    const std::u16string units = toUtf16(text);
    return {units.begin(), units.end()};
}

std::string utf8Text(std::wstring_view text) {
    return fromUtf16(std::u16string(text.begin(), text.end()));
}

std::wstring widePath(const std::string& path) {
    if (path.empty()) return {};
    const std::wstring given = wideText(path);
    if (given.starts_with(kLongPrefix)) return given;
    std::wstring full(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            ::GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        if (length == 0) return given;
        const bool isWhole = length < full.size();
        full.resize(length);
        if (isWhole) break;
    }
    if (full.size() <= kLongestShortPath || full.starts_with(kDevicePrefix)) return full;
    if (full.starts_with(kShare)) return std::wstring(kLongShare) + full.substr(kShare.size());
    return std::wstring(kLongPrefix) + full;
}

std::string pathText(std::wstring_view path) {
    if (path.starts_with(kLongShare)) return "\\\\" + utf8Text(path.substr(kLongShare.size()));
    if (path.starts_with(kLongPrefix)) path.remove_prefix(kLongPrefix.size());
    return utf8Text(path);
}

int errnoOf(unsigned long error) {
    const auto* const found = std::ranges::find(kErrors, error, &ErrorPair::windows);
    return found == std::end(kErrors) ? EIO : found->posix;
}

int setErrno() {
    errno = errnoOf(::GetLastError());
    return -1;
}

int fileNumber(void* file, int flags) {
    if (file == INVALID_HANDLE_VALUE) return setErrno();
    const int number =
        ::_open_osfhandle(reinterpret_cast<std::intptr_t>(file), flags | O_BINARY | O_NOINHERIT);
    if (number < 0) ::CloseHandle(file);
    return number;
}

}  // namespace mergeloom::windows
