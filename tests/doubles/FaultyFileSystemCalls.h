#pragma once

#include "base/FileSystemCalls.h"

#include <cerrno>
#include <string>
#include <vector>

namespace mergeloom {

/// The system's calls, of which the n-th (counted from 1) fails with the given error number. The failing call
/// is not passed on, except that a file is closed, as the system does it.
class FaultyFileSystemCalls final : public FileSystemCalls {
  public:
    FaultyFileSystemCalls(int failingCall, int error) : callsLeft_(failingCall), error_(error) {}

    [[nodiscard]] bool hasFailed() const { return callsLeft_ <= 0; }
    /// The names of all calls, in their order.
    [[nodiscard]] const std::vector<std::string>& names() const { return names_; }

    [[nodiscard]] bool flushesFileSystems() const override { return system_.flushesFileSystems(); }
    int openFolder(const char* path) override { return fails("open") ? -1 : system_.openFolder(path); }
    int open(const char* path, int flags, mode_t mode) override {
        return fails("open") ? -1 : system_.open(path, flags, mode);
    }
    ssize_t read(int file, void* bytes, std::size_t count) override {
        return fails("read") ? -1 : system_.read(file, bytes, count);
    }
    ssize_t write(int file, const void* bytes, std::size_t count) override {
        return fails("write") ? -1 : system_.write(file, bytes, count);
    }
    int fsync(int file) override { return fails("fsync") ? -1 : system_.fsync(file); }
    int syncfs(int file) override { return fails("syncfs") ? -1 : system_.syncfs(file); }
    int fchmod(int file, mode_t mode) override { return fails("fchmod") ? -1 : system_.fchmod(file, mode); }
    int close(int file) override {
        const int result = system_.close(file);
        return fails("close") ? -1 : result;
    }
    int stat(const char* path, struct stat* status) override {
        return fails("stat") ? -1 : system_.stat(path, status);
    }
    int access(const char* path, int mode) override {
        return fails("access") ? -1 : system_.access(path, mode);
    }
    ssize_t readlink(const char* path, char* target, std::size_t size) override {
        return fails("readlink") ? -1 : system_.readlink(path, target, size);
    }
    int rename(const char* from, const char* to) override {
        return fails("rename") ? -1 : system_.rename(from, to);
    }
    int unlink(const char* path) override { return fails("unlink") ? -1 : system_.unlink(path); }

  private:
    bool fails(const char* name) {
        names_.emplace_back(name);
        if (--callsLeft_ != 0) return false;
        errno = error_;
        return true;
    }

    FileSystemCalls& system_ = systemFileCalls();
    int callsLeft_;
    int error_;
    std::vector<std::string> names_;
};

}  // namespace mergeloom
