#include "base/AutomationError.h"
#include "base/DiskFileStore.h"
#include "base/FileLock.h"
#include "base/Paths.h"
#include "base/SystemFiles.h"
#include "base/SystemPath.h"
#include "doubles/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <functional>

namespace mergeloom {
namespace {

using testing::HasSubstr;

void saveWord(const std::string& path, std::string_view word) {
    DiskFileStore().save(path, [&](ByteSink& sink) { sink.write(word); });
}

std::string refusalOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const AutomationError& error) {
        return error.description();
    }
    return "no failure";
}

/// A file that another program has open.
class OpenElsewhere {
  public:
    OpenElsewhere(const std::string& path, DWORD access, DWORD share)
        : handle_(::CreateFileW(systemPath(path).c_str(), access, share, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr)) {}
    OpenElsewhere(const OpenElsewhere&) = delete;
    OpenElsewhere& operator=(const OpenElsewhere&) = delete;
    ~OpenElsewhere() { ::CloseHandle(handle_); }

    [[nodiscard]] bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }

  private:
    HANDLE handle_;
};

/// Word and Excel keep a document open in this way while it is edited.
TEST(DiskFileStore, NamesAFileThatAnotherProgramHasOpen) {
    const TemporaryFolder folder;
    const std::string path = folder / "orders.dotx";
    folder.put("orders.dotx", "old");
    {
        const OpenElsewhere other(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ);
        ASSERT_TRUE(other.isOpen());
        EXPECT_TRUE(isLockedByAnother(path));
        EXPECT_EQ(refusalOf([&] { saveWord(path, "new"); }),
                  "The file '" + path + "' could not be saved: another program has it open.");
    }
    {
        const OpenElsewhere other(path, GENERIC_READ | GENERIC_WRITE, 0);
        ASSERT_TRUE(other.isOpen());
        EXPECT_EQ(refusalOf([&] { (void)DiskFileStore().read(path); }),
                  "The file '" + path + "' could not be read: another program has it open.");
    }
    EXPECT_EQ(folder.bytesOf("orders.dotx"), "old");
    EXPECT_EQ(folder.entryCount(), 1);
    EXPECT_FALSE(isLockedByAnother(path));
    saveWord(path, "new");
    EXPECT_EQ(folder.bytesOf("orders.dotx"), "new");
}

TEST(DiskFileStore, RefusesAFileThatIsWriteProtected) {
    const TemporaryFolder folder;
    folder.put("orders.dotx", "old");
    const std::string path = folder / "orders.dotx";
    ASSERT_NE(::SetFileAttributesW(systemPath(path).c_str(), FILE_ATTRIBUTE_READONLY), 0);
    EXPECT_THAT(refusalOf([&] { saveWord(path, "new"); }), HasSubstr("it is write-protected."));
    EXPECT_EQ(folder.bytesOf("orders.dotx"), "old");
    ::SetFileAttributesW(systemPath(path).c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(DiskFileStore, SavesUnderLongPathsAndNamesOfAnyLetters) {
    const TemporaryFolder folder;
    std::string deepest = folder.path();
    for (int depth = 0; depth < 4; ++depth) {
        deepest = joinPath(deepest, "Ordner-Größe-日本-" + std::string(80, 'n'));
        ASSERT_TRUE(std::filesystem::create_directory(systemPath(deepest)));
    }
    const std::string path = joinPath(deepest, "Straße.dotx");
    ASSERT_GT(path.size(), 300U);
    saveWord(path, "old");
    saveWord(path, "new");
    DiskFileStore files;
    EXPECT_EQ(files.read(path), "new");
    EXPECT_EQ(keepBackup(files, path), path + ".bak");
    EXPECT_TRUE(fileExists(path + ".bak"));
    removeFile(path);
    EXPECT_FALSE(fileExists(path));
    std::FILE* const opened = openToRead(path + ".bak");
    ASSERT_NE(opened, nullptr);
    std::fclose(opened);
    // The library's routine for whole folders fails over long paths.
    removeFile(path + ".bak");
    for (; deepest != folder.path(); deepest = parentFolder(deepest))
        std::filesystem::remove(systemPath(deepest));
}

TEST(DiskFileStore, ScratchFilesLeaveNothing) {
    const auto count = [] {
        int files = 0;
        for (const auto& entry : std::filesystem::directory_iterator(systemPath(temporaryFolder())))
            files += entry.path().filename().wstring().starts_with(L".mergeloom-") ? 1 : 0;
        return files;
    };
    const int before = count();
    std::FILE* const file = openScratchFile();
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(std::fputs("a\n", file), 0);
    std::rewind(file);
    EXPECT_EQ(std::fgetc(file), 'a');
    EXPECT_EQ(std::fgetc(file), '\n');
    EXPECT_EQ(count(), before + 1);
    std::fclose(file);
    EXPECT_EQ(count(), before);
}

}  // namespace
}  // namespace mergeloom
