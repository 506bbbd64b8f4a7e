#include "base/FileSystemCalls.h"

#include "base/windows/WindowsText.h"

#include <aclapi.h>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <limits>

namespace mergeloom {

namespace {

using windows::fileNumber;
using windows::setErrno;
using windows::widePath;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// A handle of Windows, closed at the end of its life.
class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        if (isOpen()) ::CloseHandle(handle_);
    }

    [[nodiscard]] bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE get() const { return handle_; }

  private:
    HANDLE handle_;
};

HANDLE handleOf(int file) {
    return reinterpret_cast<HANDLE>(::_get_osfhandle(file));
}

bool isFolder(DWORD attributes) {
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool isSymbolicLink(const std::wstring& path) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return false;
    ::FindClose(search);
    return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           found.dwReserved0 == IO_REPARSE_TAG_SYMLINK;
}

/// Copies the permissions and the hidden attribute of a file to the one that replaces it. Does nothing on
/// disks without permissions.
void takeOverPermissions(const std::wstring& from, const std::wstring& to) {
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR description = nullptr;
    const DWORD error = ::GetNamedSecurityInfoW(from.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION,
                                                nullptr, nullptr, &list, nullptr, &description);
    if (error == ERROR_SUCCESS) {
        std::wstring name = to;
        ::SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                                list, nullptr);
        ::LocalFree(description);
    }
    const DWORD attributes = ::GetFileAttributesW(from.c_str());
    const bool isHidden = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_HIDDEN) != 0;
    if (isHidden) ::SetFileAttributesW(to.c_str(), attributes);
}

/// A scanner for viruses or an index of the system may have a new file open for a moment.
bool moveOver(const std::wstring& from, const std::wstring& to) {
    constexpr int kTries = 10;
    constexpr DWORD kPause = 20;  // milliseconds
    for (int tried = 1;; ++tried) {
        if (::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0)
            return true;
        const DWORD error = ::GetLastError();
        const bool mayPass = error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
        if (tried == kTries || !mayPass || isFolder(::GetFileAttributesW(to.c_str()))) return false;
        ::Sleep(kPause);
    }
}

class WindowsCalls final : public FileSystemCalls {
  public:
    /// Only an administrator may flush a whole disk.
    [[nodiscard]] bool flushesFileSystems() const override { return false; }

    int open(const char* path, int flags, mode_t) override {
        const bool writes = (flags & O_WRONLY) != 0;
        const DWORD access = writes ? GENERIC_WRITE : GENERIC_READ;
        const DWORD disposition = (flags & O_CREAT) != 0 ? CREATE_NEW : OPEN_EXISTING;
        const std::wstring name = widePath(path);
        if (isFolder(::GetFileAttributesW(name.c_str()))) return failWith(EISDIR);
        return fileNumber(::CreateFileW(name.c_str(), access, kShareAll, nullptr, disposition,
                                        FILE_ATTRIBUTE_NORMAL, nullptr),
                          writes ? O_WRONLY : O_RDONLY);
    }

    int openFolder(const char* path) override {
        const std::wstring name = widePath(path);
        const DWORD attributes = ::GetFileAttributesW(name.c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES) return setErrno();
        if (!isFolder(attributes)) return failWith(ENOTDIR);
        return fileNumber(::CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                                        FILE_FLAG_BACKUP_SEMANTICS, nullptr),
                          O_RDONLY);
    }

    ssize_t read(int file, void* bytes, std::size_t count) override {
        return ::_read(file, bytes, atMostInt(count));
    }
    ssize_t write(int file, const void* bytes, std::size_t count) override {
        return ::_write(file, bytes, atMostInt(count));
    }

    /// The entries of a folder are safe when MoveFileEx has returned.
    int fsync(int file) override {
        BY_HANDLE_FILE_INFORMATION status{};
        const HANDLE handle = handleOf(file);
        if (::GetFileInformationByHandle(handle, &status) != 0 && isFolder(status.dwFileAttributes)) return 0;
        return ::FlushFileBuffers(handle) != 0 ? 0 : setErrno();
    }
    int syncfs(int) override { return failWith(ENOSYS); }

    /// Does nothing: permissions are copied when the file is renamed.
    int fchmod(int, mode_t) override { return 0; }
    int close(int file) override { return ::_close(file); }

    int stat(const char* path, struct stat* status) override {
        const std::wstring name = widePath(path);
        WIN32_FILE_ATTRIBUTE_DATA data{};
        if (name.empty()) return failWith(ENOENT);
        if (::GetFileAttributesExW(name.c_str(), GetFileExInfoStandard, &data) == 0) return setErrno();
        const bool isDevice = name.starts_with(L"\\\\.\\");
        *status = {};
        status->st_mode = isDevice ? S_IFCHR : isFolder(data.dwFileAttributes) ? S_IFDIR : S_IFREG;
        status->st_size = static_cast<off64_t>((std::uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow);
        return 0;
    }

    /// A file can be written if it can also be replaced.
    int access(const char* path, int) override {
        const std::wstring name = widePath(path);
        const DWORD attributes = ::GetFileAttributesW(name.c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES) return setErrno();
        if (!isFolder(attributes) && (attributes & FILE_ATTRIBUTE_READONLY) != 0) return failWith(EACCES);
        const DWORD wanted = isFolder(attributes) ? FILE_ADD_FILE : GENERIC_WRITE | DELETE;
        const Handle opened(::CreateFileW(name.c_str(), wanted, kShareAll, nullptr, OPEN_EXISTING,
                                          FILE_FLAG_BACKUP_SEMANTICS, nullptr));
        return opened.isOpen() ? 0 : setErrno();
    }

    /// Follows all links at once.
    ssize_t readlink(const char* path, char* target, std::size_t size) override {
        const std::wstring name = widePath(path);
        if (!isSymbolicLink(name)) return failWith(EINVAL);
        const Handle opened(::CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                          OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
        if (!opened.isOpen()) return setErrno();
        std::array<wchar_t, std::numeric_limits<std::int16_t>::max()> text;
        const DWORD length = ::GetFinalPathNameByHandleW(opened.get(), text.data(), text.size(), 0);
        if (length == 0 || length >= text.size()) return failWith(ENAMETOOLONG);
        const std::string found = windows::pathText({text.data(), length});
        if (found.size() > size) return failWith(ENAMETOOLONG);
        std::memcpy(target, found.data(), found.size());
        return static_cast<ssize_t>(found.size());
    }

    int rename(const char* from, const char* to) override {
        const std::wstring source = widePath(from);
        const std::wstring target = widePath(to);
        if (::GetFileAttributesW(target.c_str()) != INVALID_FILE_ATTRIBUTES)
            takeOverPermissions(target, source);
        return moveOver(source, target) ? 0 : setErrno();
    }

    int unlink(const char* path) override {
        return ::DeleteFileW(widePath(path).c_str()) != 0 ? 0 : setErrno();
    }

  private:
    static unsigned atMostInt(std::size_t count) {
        return static_cast<unsigned>(std::min<std::size_t>(count, std::numeric_limits<int>::max()));
    }
    static int failWith(int error) {
        errno = error;
        return -1;
    }
};

}  // namespace

FileSystemCalls& systemFileCalls() {
    static WindowsCalls calls;
    return calls;
}

}  // namespace mergeloom
