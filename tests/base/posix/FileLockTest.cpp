#include "base/FileLock.h"
#include "doubles/TemporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace mergeloom {
namespace {

int recordLock(int file, int command, short type) {
    struct flock lock {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    return fcntl(file, command, &lock);
}

/// Another process that holds a lock on a file until it is ended.
class OtherProcess {
  public:
    OtherProcess(const std::string& path, const std::function<int(int)>& lock) {
        int ready[2];
        if (pipe(ready) != 0) return;
        process_ = fork();
        if (process_ == 0) {
            const int file = open(path.c_str(), O_RDWR);
            const char done = lock(file) == 0 ? 'y' : 'n';
            if (write(ready[1], &done, 1) == 1) pause();
            _exit(0);
        }
        char done = 'n';
        isLocking_ = read(ready[0], &done, 1) == 1 && done == 'y';
        close(ready[0]);
        close(ready[1]);
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;
    ~OtherProcess() {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    [[nodiscard]] bool isLocking() const { return isLocking_; }

  private:
    pid_t process_ = -1;
    bool isLocking_ = false;
};

TEST(FileLock, SeesEveryKindOfLockOfAnotherProcess) {
    const TemporaryFolder folder;
    folder.put("orders.dotx", "");
    const std::string path = folder / "orders.dotx";
    const std::vector<std::function<int(int)>> locks = {
        [](int file) { return recordLock(file, F_SETLK, F_WRLCK); },
        [](int file) { return recordLock(file, F_OFD_SETLK, F_WRLCK); },
        [](int file) { return flock(file, LOCK_EX); },
        [](int file) { return flock(file, LOCK_SH); },
    };
    for (const auto& lock : locks) {
        EXPECT_FALSE(isLockedByAnother(path));
        const OtherProcess other(path, lock);
        ASSERT_TRUE(other.isLocking());
        EXPECT_TRUE(isLockedByAnother(path));
    }
    const OtherProcess reader(path, [](int) { return 0; });
    EXPECT_FALSE(isLockedByAnother(path));
}

TEST(FileLock, CountsWhatCannotBeOpenedAsLocked) {
    const TemporaryFolder folder;
    EXPECT_TRUE(isLockedByAnother(folder / "nothing"));
    EXPECT_TRUE(isLockedByAnother(folder.path()));
}

}  // namespace
}  // namespace mergeloom
