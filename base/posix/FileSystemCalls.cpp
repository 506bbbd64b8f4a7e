#include "base/FileSystemCalls.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

namespace mergeloom {

namespace {

class PosixCalls final : public FileSystemCalls {
  public:
    [[nodiscard]] bool flushesFileSystems() const override { return true; }

    int open(const char* path, int flags, mode_t mode) override {
        return ::open(path, flags | O_CLOEXEC, mode);
    }
    int openFolder(const char* path) override { return ::open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC); }
    ssize_t read(int file, void* bytes, std::size_t count) override { return ::read(file, bytes, count); }
    ssize_t write(int file, const void* bytes, std::size_t count) override {
        return ::write(file, bytes, count);
    }
    int fsync(int file) override { return ::fsync(file); }
    int syncfs(int file) override { return ::syncfs(file); }
    int fchmod(int file, mode_t mode) override { return ::fchmod(file, mode); }
    int close(int file) override { return ::close(file); }
    int stat(const char* path, struct stat* status) override { return ::stat(path, status); }
    int access(const char* path, int mode) override { return ::access(path, mode); }
    ssize_t readlink(const char* path, char* target, std::size_t size) override {
        return ::readlink(path, target, size);
    }
    int rename(const char* from, const char* to) override { return ::rename(from, to); }
    int unlink(const char* path) override { return ::unlink(path); }
};

}  // namespace

FileSystemCalls& systemFileCalls() {
    static PosixCalls calls;
    return calls;
}

}  // namespace mergeloom
