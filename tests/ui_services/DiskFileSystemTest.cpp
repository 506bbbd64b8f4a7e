#include "doubles/ChangedVariable.h"
#include "doubles/FaultyFileSystemCalls.h"
#include "doubles/TemporaryFolder.h"
#include "doubles/TwoDisks.h"
#include "ui/services/DiskFileSystem.h"

#include <gmock/gmock.h>

#include <functional>

namespace mergeloom {
namespace {

using testing::AllOf;
using testing::HasSubstr;

/// Returns the sentence with which a call fails; empty if it succeeds.
std::string sentenceOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const AutomationError& error) {
        return error.description();
    }
    return {};
}

class DiskFileSystemTest : public testing::Test {
  protected:
    DiskFileSystemTest() {
        std::filesystem::create_directory(folder / "other");
        folder.put("a", "first");
        folder.put("b", "second");
    }

    /// Checks the contents of the files, and that there are no others beside them.
    [[nodiscard]] std::string state() const {
        std::string text;
        for (const char* name : {"a", "b", "other/a"})
            if (std::filesystem::exists(folder / name))
                text += std::string(name) + "=" + folder.bytesOf(name) + " ";
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path()))
            count += entry.is_regular_file() ? 1U : 0U;
        return text + std::to_string(count);
    }

    TemporaryFolder folder;
    DiskFileSystem files;
};

TEST_F(DiskFileSystemTest, CopiesMovesAndRenames) {
    files.copy(folder / "a", folder / "other/a");
    EXPECT_EQ(state(), "a=first b=second other/a=first 3");
    files.copy(folder / "b", folder / "a", Overwriting::Allowed);
    EXPECT_EQ(state(), "a=second b=second other/a=first 3");
    files.move(folder / "other/a", folder / "b", Overwriting::Allowed);
    EXPECT_EQ(state(), "a=second b=first 2");
    files.rename(folder / "b", "c");
    EXPECT_EQ(folder.bytesOf("c"), "first");
    files.rename(folder / "c", "c");
    files.rename(folder / "other", "renamed");
    EXPECT_TRUE(std::filesystem::is_directory(folder / "renamed"));
}

TEST_F(DiskFileSystemTest, NothingIsOverwrittenUnasked) {
    std::filesystem::create_symlink(folder / "nowhere", folder / "link");
    for (const std::string& target : {folder / "b", folder / "other", folder / "link", folder / "a"}) {
        SCOPED_TRACE(target);
        const std::string sentence = "The file '" + target + "' already exists.";
        EXPECT_EQ(sentenceOf([&] { files.copy(folder / "a", target); }), sentence);
        EXPECT_EQ(sentenceOf([&] { files.move(folder / "a", target); }), sentence);
    }
    EXPECT_THAT(sentenceOf([&] { files.rename(folder / "a", "b"); }), HasSubstr("already exists"));
    EXPECT_EQ(state(), "a=first b=second 2");
}

TEST_F(DiskFileSystemTest, SentencesNameTheFileAndTheReason) {
    EXPECT_THAT(sentenceOf([&] { files.copy(folder / "none", folder / "x"); }),
                AllOf(HasSubstr(folder / "none"), HasSubstr("does not exist")));
    EXPECT_THAT(sentenceOf([&] { files.move(folder / "none", folder / "x"); }),
                AllOf(HasSubstr(folder / "none"), HasSubstr("it does not exist")));
    EXPECT_THAT(sentenceOf([&] { files.move(folder / "a", folder / "none/x"); }),
                AllOf(HasSubstr(folder / "a"), HasSubstr("the folder '" + (folder / "none") + "'")));
    EXPECT_THAT(sentenceOf([&] { files.move(folder / "other", folder / "other/inside"); }),
                HasSubstr("into itself"));
    EXPECT_THAT(sentenceOf([&] { files.copy(folder / "a", folder / "other", Overwriting::Allowed); }),
                HasSubstr("it is a folder"));
    for (const char* name : {"", ".", "..", "x/y"})
        EXPECT_THAT(sentenceOf([&] { files.rename(folder / "a", name); }), HasSubstr("is no file name"));
    EXPECT_EQ(state(), "a=first b=second 2");
}

TEST_F(DiskFileSystemTest, AWriteProtectedFileStays) {
    FaultyFileSystemCalls calls(4, EACCES);
    EXPECT_THAT(
        sentenceOf([&] { DiskFileSystem(calls).move(folder / "a", folder / "b", Overwriting::Allowed); }),
        AllOf(HasSubstr(folder / "b"), HasSubstr("write-protected")));
    EXPECT_EQ(calls.names().back(), "access") << "whether the target may be written";
    EXPECT_EQ(state(), "a=first b=second 2");
}

TEST_F(DiskFileSystemTest, MovesToAnotherDisk) {
    TwoDisks disks(systemFileCalls());
    DiskFileSystem two(disks);
    two.move(folder / "a", folder / "other/a");
    EXPECT_EQ(state(), "b=second other/a=first 2");
    two.move(folder / "b", folder / "other/a", Overwriting::Allowed);
    EXPECT_EQ(state(), "other/a=second 1");
    EXPECT_THAT(sentenceOf([&] { two.move(folder / "other", folder / "other/x/y"); }),
                HasSubstr("a folder cannot be moved to another disk"));

    TwoDisks guarded(systemFileCalls(), folder / "other/a");
    EXPECT_THAT(sentenceOf([&] { DiskFileSystem(guarded).move(folder / "other/a", folder / "a"); }),
                HasSubstr("the original could not be deleted"));
    EXPECT_EQ(folder.bytesOf("other/a"), "second");
}

/// Regardless of which call fails, both files are unchanged or the move is complete.
TEST_F(DiskFileSystemTest, AFailureLeavesBothSidesWhole) {
    const std::string before = "a=first b=second 2";
    int failures = 0;
    for (int call = 1; call < 100; ++call) {
        SCOPED_TRACE(call);
        FaultyFileSystemCalls faulty(call, EIO);
        TwoDisks disks(faulty);
        const std::string sentence =
            sentenceOf([&] { DiskFileSystem(disks).move(folder / "a", folder / "other/a"); });
        if (!faulty.hasFailed()) break;
        ++failures;
        // A call that only checks whether a file exists may fail without an error.
        if (sentence.empty()) {
            EXPECT_EQ(state(), "b=second other/a=first 2");
        } else {
            EXPECT_THAT(sentence, HasSubstr(folder.path()));
            EXPECT_EQ(folder.bytesOf("a"), "first");
            const std::string copied = folder.bytesOf("other/a");
            EXPECT_TRUE(state() == before || copied == "first") << state();
        }
        std::filesystem::remove(folder / "other/a");
        folder.put("a", "first");
    }
    EXPECT_GT(failures, 8) << "the calls of a copy";
}

TEST_F(DiskFileSystemTest, MovesToTheTrash) {
    // The trash at home accepts only files on the same disk, and a folder for temporary files may be on
    // another.
    const ChangedVariable home("HOME", folder / "");
    const ChangedVariable data("XDG_DATA_HOME", folder / "data");
    files.moveToTrash(folder / "a");
    EXPECT_EQ(folder.bytesOf("data/Trash/files/a"), "first");
    EXPECT_TRUE(std::filesystem::exists(folder / "data/Trash/info/a.trashinfo")) << "so it can be restored";
    EXPECT_FALSE(std::filesystem::exists(folder / "a"));
    EXPECT_THAT(sentenceOf([&] { files.moveToTrash(folder / "a"); }),
                AllOf(HasSubstr(folder / "a"), HasSubstr("it does not exist")));
}

TEST_F(DiskFileSystemTest, WithoutATrashTheFileStays) {
    folder.put("no-folder", "");
    const ChangedVariable home("HOME", folder / "");
    const ChangedVariable data("XDG_DATA_HOME", folder / "no-folder");
    EXPECT_THAT(sentenceOf([&] { files.moveToTrash(folder / "a"); }),
                AllOf(HasSubstr(folder / "a"), HasSubstr("there is no trash")));
    EXPECT_EQ(state(), "a=first b=second 3");
}

TEST_F(DiskFileSystemTest, WhatCannotBeTrashedStays) {
    const ChangedVariable data("XDG_DATA_HOME", folder / "data");
    EXPECT_THAT(sentenceOf([&] { files.moveToTrash("/proc/version"); }),
                AllOf(HasSubstr("/proc/version"), HasSubstr("trash")));
    EXPECT_TRUE(std::filesystem::exists("/proc/version"));
}

TEST_F(DiskFileSystemTest, CreatesFolders) {
    files.createFolder(folder / "x/y/z");
    EXPECT_TRUE(std::filesystem::is_directory(folder / "x/y/z"));
    files.createFolder(folder / "x/y/z/");
    EXPECT_THAT(sentenceOf([&] { files.createFolder(folder / "a"); }),
                AllOf(HasSubstr("folder '" + (folder / "a")), HasSubstr("could not be created")));
    EXPECT_THAT(sentenceOf([&] { files.createFolder(folder / "a/b"); }), HasSubstr(folder / "a/b"));
    EXPECT_EQ(folder.bytesOf("a"), "first");
}

}  // namespace
}  // namespace mergeloom
