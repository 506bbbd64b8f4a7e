#include "base/Paths.h"
#include "doubles/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

TEST(Paths, TakesPathsApart) {
    struct Case {
        std::string path, folder, name, extension;
    };
    const std::vector<Case> cases = {
        {"/srv/orders.dotx", "/srv", "orders.dotx", "dotx"},
        {"/orders", "/", "orders", ""},
        {"orders.tar.GZ", "", "orders.tar.GZ", "GZ"},
        {"/srv/v1.2/orders", "/srv/v1.2", "orders", ""},
        {"/srv//orders.d//", "/srv", "orders.d", "d"},
        {"/", "", "", ""},
        {"//", "", "", ""},
        {"", "", "", ""},
        {".dotx", "", ".dotx", "dotx"},
        {"orders.", "", "orders.", ""},
        {"a/../b", "a/..", "b", ""},
        {"/srv/Ü ber/ß.dotx", "/srv/Ü ber", "ß.dotx", "dotx"},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(parentFolder(one.path), one.folder) << one.path;
        EXPECT_EQ(fileNameOnly(one.path), one.name) << one.path;
        EXPECT_EQ(extension(one.path), one.extension) << one.path;
    }
    EXPECT_EQ(joinPath("/srv", "a"), "/srv/a");
    EXPECT_EQ(joinPath("/", "a"), "/a");
    EXPECT_EQ(joinPath("", "a"), "a");
}

TEST(Paths, MakesFullPaths) {
    const std::string here = std::filesystem::current_path().string();
    EXPECT_EQ(fullPath("a/./b/../c.xml"), joinPath(here, "a/c.xml"));
    EXPECT_EQ(fullPath("/a/b/"), "/a/b");
    EXPECT_EQ(fullPath("/.."), "/");
    EXPECT_EQ(fullPath("."), here);
    EXPECT_EQ(fullPath(""), "");
}

TEST(Paths, TellsFilesFromFolders) {
    const TemporaryFolder folder;
    folder.put("plain", "");
    std::filesystem::create_symlink("plain", folder / "link");
    std::filesystem::create_symlink("nothing", folder / "dangling");
    struct Case {
        std::string path;
        bool isFile, isFolder;
    };
    const std::vector<Case> cases = {
        {folder.path(), false, true},           {folder / "plain", true, false},
        {folder / "link", true, false},         {folder / "dangling", false, false},
        {folder / "nothing", false, false},     {folder / "plain/below", false, false},
        {std::string(5000, 'n'), false, false}, {"", false, false},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(fileExists(one.path), one.isFile) << one.path;
        EXPECT_EQ(folderExists(one.path), one.isFolder) << one.path;
    }
}

}  // namespace
}  // namespace mergeloom
