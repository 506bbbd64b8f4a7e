#include "base/DocumentLock.h"
#include "doubles/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <ctime>
#include <filesystem>
#include <string>

namespace mergeloom {
namespace {

using testing::ContainsRegex;

constexpr const char* kLockFile = ".~lock.letter.docx#";

/// Another process of this program that has a document open until it is killed.
class OtherWindow {
  public:
    explicit OtherWindow(const std::string& document) {
        int ready[2];
        if (pipe(ready) != 0) return;
        process_ = fork();
        if (process_ == 0) {
            const DocumentLock lock(document);
            if (write(ready[1], "y", 1) == 1) pause();
            _exit(0);
        }
        char done = 0;
        isOpen_ = read(ready[0], &done, 1) == 1;
        close(ready[0]);
        close(ready[1]);
    }
    OtherWindow(const OtherWindow&) = delete;
    OtherWindow& operator=(const OtherWindow&) = delete;
    ~OtherWindow() { die(); }

    [[nodiscard]] bool isOpen() const { return isOpen_; }
    void die() {
        if (process_ <= 0) return;
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
        process_ = -1;
    }

  private:
    pid_t process_ = -1;
    bool isOpen_ = false;
};

TEST(DocumentLock, OnlyTheLivingHinder) {
    const TemporaryFolder folder;
    folder.put("letter.docx", "");
    const std::string path = folder / "letter.docx";
    OtherWindow other(path);
    ASSERT_TRUE(other.isOpen());
    const std::string line = folder.bytesOf(kLockFile);
    ASSERT_TRUE(otherLockOwner(path).has_value());
    EXPECT_NE(otherLockOwner(path)->since, "");
    { const DocumentLock ours(path); }
    EXPECT_EQ(folder.bytesOf(kLockFile), line) << "the other's lock stays";

    other.die();
    EXPECT_TRUE(std::filesystem::exists(folder / kLockFile));
    EXPECT_FALSE(otherLockOwner(path).has_value());
    {
        const DocumentLock ours(path);
        EXPECT_NE(folder.bytesOf(kLockFile), line);
        EXPECT_FALSE(otherLockOwner(path).has_value()) << "it is our own";
        EXPECT_TRUE(OtherWindow(path).isOpen());
        EXPECT_TRUE(std::filesystem::exists(folder / kLockFile)) << "another process removes nothing";
    }
    EXPECT_FALSE(std::filesystem::exists(folder / kLockFile));
}

TEST(DocumentLock, LocksOfOtherProgramsAndComputersHinder) {
    const TemporaryFolder folder;
    const char* const lines[] = {"", "garbage", ",ada,engine,10.12.2026 08:15,file:///home/ada/profile;",
                                 ",ada,another computer,10.12.2026 08:15,mergeloom:1;"};
    for (const char* const line : lines) {
        folder.put(kLockFile, line);
        { const DocumentLock ours(folder / "letter.docx"); }
        EXPECT_TRUE(otherLockOwner(folder / "letter.docx").has_value()) << line;
        EXPECT_EQ(folder.bytesOf(kLockFile), line);
    }
}

TEST(DocumentLock, FollowsLinks) {
    const TemporaryFolder folder;
    folder.put("letter.docx", "");
    std::filesystem::create_symlink(folder / "letter.docx", folder / "link.docx");
    const DocumentLock lock(folder / "link.docx");
    EXPECT_TRUE(std::filesystem::exists(folder / kLockFile));
    EXPECT_TRUE(lock.isOf(folder / "letter.docx"));
}

/// The C library has one time for all threads, which the last call has set.
TEST(DocumentLock, LeavesTheSharedTimeAlone) {
    const std::time_t start = 0;
    const std::tm* const shared = std::localtime(&start);
    ASSERT_NE(shared, nullptr);
    const int year = shared->tm_year;
    const TemporaryFolder folder;
    const DocumentLock lock(folder / "letter.docx");
    EXPECT_EQ(shared->tm_year, year);
    EXPECT_THAT(folder.bytesOf(kLockFile),
                ContainsRegex(",[0-9][0-9]\\.[0-9][0-9]\\.20[0-9][0-9] [0-9][0-9]:"));
}

TEST(DocumentLock, AFolderThatCannotBeWrittenHasNone) {
    const DocumentLock lock("/proc/letter.docx");
    EXPECT_FALSE(otherLockOwner("/proc/letter.docx").has_value());
}

}  // namespace
}  // namespace mergeloom
