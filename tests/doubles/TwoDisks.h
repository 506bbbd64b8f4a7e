#pragma once

#include "base/FileSystemCalls.h"

#include <cerrno>
#include <string>

namespace mergeloom {

/// The system's calls as if two folders were on different disks: nothing can be moved from one to the other
/// by renaming. A guarded file cannot be removed.
class TwoDisks final : public FileSystemCalls {
  public:
    explicit TwoDisks(FileSystemCalls& calls, std::string guardedFile = {})
        : calls_(calls), guardedFile_(std::move(guardedFile)) {}

    int open(const char* path, int flags, mode_t mode) override { return calls_.open(path, flags, mode); }
    ssize_t read(int file, void* bytes, std::size_t count) override {
        return calls_.read(file, bytes, count);
    }
    ssize_t write(int file, const void* bytes, std::size_t count) override {
        return calls_.write(file, bytes, count);
    }
    int fsync(int file) override { return calls_.fsync(file); }
    int syncfs(int file) override { return calls_.syncfs(file); }
    int openFolder(const char* path) override { return calls_.openFolder(path); }
    [[nodiscard]] bool flushesFileSystems() const override { return calls_.flushesFileSystems(); }
    int fchmod(int file, mode_t mode) override { return calls_.fchmod(file, mode); }
    int close(int file) override { return calls_.close(file); }
    int stat(const char* path, struct stat* status) override { return calls_.stat(path, status); }
    int access(const char* path, int mode) override { return calls_.access(path, mode); }
    ssize_t readlink(const char* path, char* target, std::size_t size) override {
        return calls_.readlink(path, target, size);
    }
    int rename(const char* from, const char* to) override {
        if (folderOf(from) == folderOf(to)) return calls_.rename(from, to);
        errno = EXDEV;
        return -1;
    }
    int unlink(const char* path) override {
        if (path != guardedFile_) return calls_.unlink(path);
        errno = EPERM;
        return -1;
    }

  private:
    static std::string folderOf(const std::string& path) { return path.substr(0, path.rfind('/')); }

    FileSystemCalls& calls_;
    std::string guardedFile_;
};

}  // namespace mergeloom
