#include "base/Paths.h"
#include "base/SystemPath.h"
#include "doubles/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

TEST(Paths, TakesPathsOfWindowsApart) {
    struct Case {
        std::string path, folder, name;
    };
    const std::vector<Case> cases = {
        {R"(C:\srv\orders.dotx)", R"(C:\srv)", "orders.dotx"},
        {R"(C:/srv\orders.d//)", "C:/srv", "orders.d"},
        {R"(C:\orders)", R"(C:\)", "orders"},
        {R"(C:\)", "", ""},
        {"C:orders", "C:", "orders"},
        {R"(\orders)", R"(\)", "orders"},
        {R"(\\server\share\a\b.dotx)", R"(\\server\share\a)", "b.dotx"},
        {R"(\\server\share\b.dotx)", R"(\\server\share\)", "b.dotx"},
        {R"(\\server\share)", "", ""},
        {"orders.dotx", "", "orders.dotx"},
        {"", "", ""},
        {R"(C:\Ü ber\ß.dotx)", R"(C:\Ü ber)", "ß.dotx"},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(parentFolder(one.path), one.folder) << one.path;
        EXPECT_EQ(fileNameOnly(one.path), one.name) << one.path;
    }
    EXPECT_EQ(joinPath(R"(C:\srv)", "a"), R"(C:\srv\a)");
    EXPECT_EQ(joinPath(R"(C:\)", "a"), R"(C:\a)");
    EXPECT_EQ(joinPath("C:", "a"), "C:a");
    EXPECT_EQ(joinPath("", "a"), "a");
}

TEST(Paths, KnowsWhichPathsDependOnTheCurrentFolder) {
    for (const char* const path : {R"(C:\a)", "C:/a", R"(\\server\share\a)", "//server/share/a"})
        EXPECT_TRUE(isAbsolutePath(path)) << path;
    for (const char* const path : {"", "a", "C:", "C:a", R"(\a)", "/a", R"(a\b)"})
        EXPECT_FALSE(isAbsolutePath(path)) << path;
}

TEST(Paths, MakesFullPathsOfWindows) {
    const std::string here = std::filesystem::current_path().string();
    const std::string drive = here.substr(0, 2);
    EXPECT_EQ(fullPath("a/./b/../c.xml"), joinPath(here, R"(a\c.xml)"));
    EXPECT_EQ(fullPath(R"(C:\a\b\)"), R"(C:\a\b)");
    EXPECT_EQ(fullPath("C:/a/../.."), R"(C:\)");
    EXPECT_EQ(fullPath("/a"), drive + R"(\a)");
    EXPECT_EQ(fullPath(R"(\\server\share\a\..\b)"), R"(\\server\share\b)");
    EXPECT_EQ(fullPath("."), here);
    EXPECT_EQ(fullPath(""), "");
}

/// Windows accepts paths of more than 260 characters only in a special form, which users never see.
TEST(Paths, GivesLongPathsTheirForm) {
    const std::string name(100, 'n');
    const std::string longPath = R"(C:\)" + name + "\\" + name + "\\" + name;
    EXPECT_EQ(systemPath(longPath).wstring().substr(0, 7), LR"(\\?\C:\)");
    EXPECT_EQ(systemPath(R"(\\server\share\)" + longPath.substr(3)).wstring().substr(0, 21),
              LR"(\\?\UNC\server\share\)");
    EXPECT_EQ(systemPath(R"(C:\short)").wstring(), LR"(C:\short)");
    EXPECT_EQ(fullPath(longPath), longPath);
}

TEST(Paths, TellsFilesFromFolders) {
    const TemporaryFolder folder;
    folder.put("plain", "");
    EXPECT_TRUE(fileExists(folder / "plain"));
    EXPECT_TRUE(fileExists(folder / "PLAIN"));
    EXPECT_FALSE(folderExists(folder / "plain"));
    EXPECT_TRUE(folderExists(folder.path()));
    EXPECT_FALSE(fileExists(folder.path()));
    for (const std::string& none : {folder / "nothing", folder / "plain/below", std::string(40'000, 'n')}) {
        EXPECT_FALSE(fileExists(none));
        EXPECT_FALSE(folderExists(none));
    }
}

}  // namespace
}  // namespace mergeloom
