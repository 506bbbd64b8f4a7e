#include "base/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace mergeloom {

namespace {

bool isFolder(int file) {
    struct stat status {};
    return fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
}

/// Tests for a lock on the whole file without taking one.
bool hasRecordLock(int file) {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return fcntl(file, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

/// This kind of lock can only be tried; closing the file releases it.
bool hasWholeFileLock(int file) {
    return flock(file, LOCK_EX | LOCK_NB) < 0 && errno == EWOULDBLOCK;
}

}  // namespace

bool isLockedByAnother(const std::string& path) {
    // Without O_NONBLOCK a pipe would wait for a writer.
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) return true;
    const bool locked = isFolder(file) || hasRecordLock(file) || hasWholeFileLock(file);
    close(file);
    return locked;
}

}  // namespace mergeloom
