#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "doubles/FaultyFileSystemCalls.h"
#include "doubles/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>

namespace mergeloom {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr int kNoFailure = 1'000'000;

void saveWord(FileStore& store, const std::string& path, std::string_view word) {
    store.save(path, [&](ByteSink& sink) { sink.write(word); });
}

std::string refusalOf(const std::function<void()>& saving) {
    try {
        saving();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), kFileCouldNotBeSaved);
        return error.description();
    }
    return "no failure";
}

mode_t modeOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

TEST(DiskFileStore, BringsABatchToTheDiskAtItsEnd) {
    const TemporaryFolder folder;
    FaultyFileSystemCalls calls(kNoFailure, 0);
    DiskFileStore store(calls);
    store.saveInBatch(folder / "a.docx", [](ByteSink& sink) { sink.write(std::string_view("new")); });
    store.finishBatch();
    EXPECT_THAT(calls.names(), ElementsAre("readlink", "stat", "open", "write", "close", "rename", "open",
                                           "syncfs", "close"));
    store.finishBatch();
    EXPECT_EQ(calls.names().size(), 9U);
}

TEST(DiskFileStore, FollowsLinksAndKeepsThem) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "real");
    folder.put("real/orders.dotx", "old");
    std::filesystem::create_symlink("real/orders.dotx", folder / "near");
    std::filesystem::create_symlink(folder / "near", folder / "far");
    std::filesystem::create_symlink("real/new.dotx", folder / "dangling");
    std::filesystem::create_symlink("circle", folder / "circle");
    DiskFileStore store;
    saveWord(store, folder / "far", "new");
    saveWord(store, folder / "dangling", "newer");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "far"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "near"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "dangling"));
    EXPECT_EQ(folder.bytesOf("real/orders.dotx"), "new");
    EXPECT_EQ(folder.bytesOf("real/new.dotx"), "newer");
    EXPECT_THAT(refusalOf([&] { saveWord(store, folder / "circle", "new"); }), HasSubstr("circle"));
}

TEST(DiskFileStore, KeepsTheModeOfAFileAndGivesANewOneWhatTheMaskLeaves) {
    const TemporaryFolder folder;
    folder.put("old", "old");
    DiskFileStore store;
    const mode_t mask = ::umask(027);
    for (const mode_t mode : {0600U, 0664U, 0666U}) {
        ASSERT_EQ(::chmod((folder / "old").c_str(), mode), 0);
        saveWord(store, folder / "old", "new");
        EXPECT_EQ(modeOf(folder / "old"), mode);
    }
    saveWord(store, folder / "new", "new");
    EXPECT_EQ(modeOf(folder / "new"), 0640U);
    ::umask(mask);
}

TEST(DiskFileStore, SaysThatTheFolderOrTheFileIsProtected) {
    if (::geteuid() == 0) {
        // This user may write everywhere, so the system's results are simulated.
        const TemporaryFolder folder;
        folder.put("old", "old");
        std::string failures;
        for (int call = 1; call < 6; ++call) {
            FaultyFileSystemCalls calls(call, EACCES);
            DiskFileStore store(calls);
            failures += refusalOf([&] { saveWord(store, folder / "old", "new"); });
        }
        EXPECT_THAT(failures, HasSubstr("it is write-protected."));
        EXPECT_THAT(failures, HasSubstr("the folder '" + folder.path() + "' cannot be written."));
        return;
    }
    const TemporaryFolder folder;
    folder.put("old", "old");
    DiskFileStore store;
    ::chmod((folder / "old").c_str(), 0444);
    EXPECT_THAT(refusalOf([&] { saveWord(store, folder / "old", "new"); }),
                HasSubstr("it is write-protected."));
    ::chmod(folder.path().c_str(), 0555);
    EXPECT_THAT(refusalOf([&] { saveWord(store, folder / "new", "new"); }), HasSubstr("cannot be written."));
    ::chmod(folder.path().c_str(), 0755);
}

}  // namespace
}  // namespace mergeloom
