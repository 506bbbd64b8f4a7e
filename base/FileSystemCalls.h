#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>

namespace mergeloom {

/// The modes of access: W_OK and X_OK of POSIX.1.
inline constexpr int kMayWrite = 2;
inline constexpr int kMayEnter = 1;

/// The system's calls on files, with the names and results of POSIX.1: -1 and errno report a failure.
/// Programs that this one starts inherit no file. A test double shows how a save behaves when one of them
/// fails.
class FileSystemCalls {
  public:
    FileSystemCalls() = default;
    FileSystemCalls(const FileSystemCalls&) = delete;
    FileSystemCalls& operator=(const FileSystemCalls&) = delete;
    virtual ~FileSystemCalls() = default;

    /// Returns true if syncfs flushes a whole file system. Otherwise each file has to be flushed by itself.
    [[nodiscard]] virtual bool flushesFileSystems() const = 0;

    /// Opens a file. Supports the flags O_RDONLY, O_WRONLY, O_CREAT and O_EXCL.
    virtual int open(const char* path, int flags, mode_t mode) = 0;
    /// Opens a folder, to flush its entries by fsync or its file system by syncfs.
    virtual int openFolder(const char* path) = 0;
    virtual ssize_t read(int file, void* bytes, std::size_t count) = 0;
    virtual ssize_t write(int file, const void* bytes, std::size_t count) = 0;
    virtual int fsync(int file) = 0;
    virtual int syncfs(int file) = 0;
    virtual int fchmod(int file, mode_t mode) = 0;
    virtual int close(int file) = 0;
    virtual int stat(const char* path, struct stat* status) = 0;
    virtual int access(const char* path, int mode) = 0;
    virtual ssize_t readlink(const char* path, char* target, std::size_t size) = 0;
    virtual int rename(const char* from, const char* to) = 0;
    virtual int unlink(const char* path) = 0;
};

/// Returns the calls of the running system.
FileSystemCalls& systemFileCalls();

}  // namespace mergeloom
