#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "base/Paths.h"
#include "base/SystemFiles.h"
#include "doubles/FaultyFileSystemCalls.h"
#include "doubles/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace mergeloom {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr int kNever = 1'000'000;
const std::string kOld = "the old file";
/// A text that is longer than the buffer, so that a save writes before its end.
const std::string kNew(200 * 1024 + 1, 'n');

void saveText(FileStore& store, const std::string& path, const std::string& text) {
    store.save(path, [&](ByteSink& sink) {
        for (std::size_t start = 0; start < text.size(); start += 30'000) {
            sink.write(std::string_view(text).substr(start, 30'000));
        }
    });
}

std::string failureOf(const std::function<void()>& action, ErrorNumber number) {
    try {
        action();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), number);
        return error.description();
    }
    return "no failure";
}

TEST(DiskFileStore, ReadsWhatItSaved) {
    const TemporaryFolder folder;
    DiskFileStore store;
    for (const std::size_t size : {0, 1, 65'535, 65'536, 65'537, 1'000'000}) {
        std::string text(size, '\0');
        std::generate(text.begin(), text.end(),
                      [next = 0]() mutable { return static_cast<char>(next++ % 251); });
        saveText(store, folder / "a file", text);
        EXPECT_TRUE(store.read(folder / "a file") == text) << size;
    }
    store.save(folder / "a file", [](ByteSink& sink) {
        sink.write(std::string_view("before "));
        sink.write(kNew);
        sink.write(std::string_view(" behind"));
    });
    EXPECT_TRUE(store.read(folder / "a file") == "before " + kNew + " behind");
}

TEST(DiskFileStore, LeavesTheOldFileWholeWhicheverCallFails) {
    const TemporaryFolder folder;
    for (int call = 1;; ++call) {
        folder.put("orders.dotx", kOld);
        FaultyFileSystemCalls calls(call, EIO);
        DiskFileStore store(calls);
        const std::string failure =
            failureOf([&] { saveText(store, folder / "orders.dotx", kNew); }, kFileCouldNotBeSaved);
        EXPECT_EQ(folder.entryCount(), 1) << "call " << call;
        if (!calls.hasFailed()) {
            EXPECT_GT(call, 12);
            EXPECT_EQ(failure, "no failure");
            EXPECT_TRUE(folder.bytesOf("orders.dotx") == kNew);
            break;
        }
        // Only calls after the rename may find the new file, and the message must report it.
        const bool isReplaced = failure.find("was written") != std::string::npos;
        EXPECT_TRUE(folder.bytesOf("orders.dotx") == (isReplaced || failure == "no failure" ? kNew : kOld))
            << call;
        EXPECT_THAT(failure, AnyOf("no failure", HasSubstr(folder / "orders.dotx")));
    }
}

TEST(DiskFileStore, LeavesNothingOfANewFileWhicheverCallFails) {
    const TemporaryFolder folder;
    for (int call = 1;; ++call) {
        FaultyFileSystemCalls calls(call, ENOSPC);
        DiskFileStore store(calls);
        const std::string failure =
            failureOf([&] { saveText(store, folder / "orders.dotx", kNew); }, kFileCouldNotBeSaved);
        if (!calls.hasFailed()) break;
        const bool stands = failure == "no failure" || failure.find("was written") != std::string::npos;
        EXPECT_EQ(folder.entryCount(), stands ? 1 : 0) << "call " << call;
        EXPECT_TRUE(stands || failure.ends_with("the disk is full.")) << failure;
        std::filesystem::remove(folder / "orders.dotx");
    }
}

TEST(DiskFileStore, BringsTheBytesToTheDiskBeforeTheNameAndThenTheName) {
    const TemporaryFolder folder;
    FaultyFileSystemCalls calls(kNever, 0);
    DiskFileStore store(calls);
    saveText(store, folder / "orders.dotx", "new");
    EXPECT_THAT(calls.names(), ElementsAre("readlink", "stat", "open", "write", "fsync", "close", "open",
                                           "rename", "fsync", "close"));
}

/// A batch that fails at any system call leaves complete files and reports the failure.
TEST(DiskFileStore, LeavesWholeFilesOfABatchWhicheverCallFails) {
    const std::vector<std::string> names{"a.docx", "b.docx"};
    for (int call = 1;; ++call) {
        const TemporaryFolder folder;
        FaultyFileSystemCalls calls(call, ENOSPC);
        DiskFileStore store(calls);
        const auto writeAll = [&] {
            for (const std::string& name : names)
                store.saveInBatch(folder / name, [](ByteSink& sink) { sink.write(kNew); });
            store.finishBatch();
        };
        const std::string failure = failureOf(writeAll, kFileCouldNotBeSaved);
        int whole = 0;
        for (const std::string& name : names) {
            if (!std::filesystem::exists(folder / name)) continue;
            ++whole;
            EXPECT_TRUE(folder.bytesOf(name) == kNew) << call;
        }
        EXPECT_EQ(folder.entryCount(), whole) << call;
        if (!calls.hasFailed()) {
            EXPECT_EQ(failure, "no failure");
            EXPECT_EQ(whole, 2);
            break;
        }
        EXPECT_TRUE(failure.find(".docx'") != std::string::npos || whole == 2) << failure;
    }
}

TEST(DiskFileStore, TellsOfEveryFailureToRead) {
    const TemporaryFolder folder;
    folder.put("orders.dotx", kOld);
    for (int call = 1; call <= 4; ++call) {
        FaultyFileSystemCalls calls(call, EIO);
        DiskFileStore store(calls);
        EXPECT_THAT(failureOf([&] { (void)store.read(folder / "orders.dotx"); }, kFileCouldNotBeRead),
                    HasSubstr("The file '" + (folder / "orders.dotx") + "' could not be read: "))
            << call;
    }
}

TEST(DiskFileStore, LetsTheWritersErrorPassAndKeepsTheOldFile) {
    const TemporaryFolder folder;
    folder.put("orders.dotx", kOld);
    DiskFileStore store;
    const auto failingWriter = [](ByteSink& sink) {
        sink.write(kNew);
        throw std::runtime_error("out of words");
    };
    EXPECT_THROW(store.save(folder / "orders.dotx", failingWriter), std::runtime_error);
    EXPECT_EQ(folder.bytesOf("orders.dotx"), kOld);
    EXPECT_EQ(folder.entryCount(), 1);
}

/// The calls of a system that interrupts every transfer and then moves only a few bytes.
class HaltingCalls final : public FileSystemCalls {
  public:
    [[nodiscard]] bool flushesFileSystems() const override { return system_.flushesFileSystems(); }
    int openFolder(const char* path) override { return halts() ? -1 : system_.openFolder(path); }
    int open(const char* path, int flags, mode_t mode) override {
        return halts() ? -1 : system_.open(path, flags, mode);
    }
    ssize_t read(int file, void* bytes, std::size_t count) override {
        return halts() ? -1 : system_.read(file, bytes, std::min(count, kMaxCount));
    }
    ssize_t write(int file, const void* bytes, std::size_t count) override {
        return halts() ? -1 : system_.write(file, bytes, std::min(count, kMaxCount));
    }
    int fsync(int file) override { return halts() ? -1 : system_.fsync(file); }
    int syncfs(int file) override { return halts() ? -1 : system_.syncfs(file); }
    int fchmod(int file, mode_t mode) override { return system_.fchmod(file, mode); }
    int close(int file) override {
        system_.close(file);
        errno = EINTR;
        return -1;
    }
    int stat(const char* path, struct stat* status) override { return system_.stat(path, status); }
    int access(const char* path, int mode) override { return system_.access(path, mode); }
    ssize_t readlink(const char* path, char* target, std::size_t size) override {
        return system_.readlink(path, target, size);
    }
    int rename(const char* from, const char* to) override { return system_.rename(from, to); }
    int unlink(const char* path) override { return system_.unlink(path); }

  private:
    static constexpr std::size_t kMaxCount = 1000;
    bool halts() {
        halts_ = !halts_;
        errno = EINTR;
        return halts_;
    }

    FileSystemCalls& system_ = systemFileCalls();
    bool halts_ = false;
};

TEST(DiskFileStore, GoesOnAfterInterruptionsAndShortTransfers) {
    const TemporaryFolder folder;
    HaltingCalls calls;
    DiskFileStore store(calls);
    saveText(store, folder / "orders.dotx", kNew);
    EXPECT_TRUE(store.read(folder / "orders.dotx") == kNew);
    EXPECT_TRUE(folder.bytesOf("orders.dotx") == kNew);
}

TEST(DiskFileStore, SavesUnderTheLongestNameOfTheDisk) {
    const TemporaryFolder folder;
    const std::string name(255, 'n');
    DiskFileStore store;
    saveText(store, folder / name, "new");
    EXPECT_EQ(folder.bytesOf(name), "new");
}

TEST(DiskFileStore, PassesByTemporaryFilesThatAnEarlierProcessLeft) {
    const TemporaryFolder folder;
    const std::string left = ".mergeloom-" + std::to_string(processNumber()) + "-0.tmp";
    folder.put(left, "left");
    DiskFileStore store;
    saveText(store, folder / "orders.dotx", "new");
    EXPECT_EQ(folder.bytesOf("orders.dotx"), "new");
    EXPECT_EQ(folder.bytesOf(left), "left");
}

TEST(DiskFileStore, SaysWhatIsWrongWithTheFile) {
    const TemporaryFolder folder;
    folder.put("plain", "");
    DiskFileStore store;
    const auto saving = [&](const std::string& name) {
        return failureOf([&] { saveText(store, folder / name, "new"); }, kFileCouldNotBeSaved);
    };
    const auto reading = [&](const std::string& name) {
        return failureOf([&] { (void)store.read(folder / name); }, kFileCouldNotBeRead);
    };
    const std::string notSaved = "' could not be saved: ";
    const std::string notRead = "' could not be read: ";
    const std::string file = "The file '" + folder.path();
    EXPECT_EQ(saving("no/a"),
              file + "/no/a" + notSaved + "the folder '" + fullPath(folder / "no") + "' does not exist.");
    EXPECT_EQ(saving("plain/a"), file + "/plain/a" + notSaved + "the folder '" + fullPath(folder / "plain") +
                                     "' does not exist.");
    EXPECT_EQ(saving("."), file + "/." + notSaved + "it is a folder.");
    EXPECT_EQ(reading("no"), file + "/no" + notRead + "it does not exist.");
    EXPECT_EQ(reading("."), file + "/." + notRead + "it is a folder.");
    EXPECT_FALSE(store.fileExists(folder.path()));
    EXPECT_TRUE(store.fileExists(folder / "plain"));
}

}  // namespace
}  // namespace mergeloom
