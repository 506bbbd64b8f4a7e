#include "app/mCommandLine.h"
#include "app/modMain.h"
#include "base/Paths.h"
#include "doubles/TemporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/file.h>
#include <unistd.h>

namespace mergeloom {
namespace {

TEST(modMain, TakesPathsApart) {
    const TemporaryFolder folder;
    EXPECT_EQ(GetParentFolder(folder / "a.xml", true), folder.path());
    EXPECT_EQ(GetParentFolder(folder / "no/a.xml", true), "");
    EXPECT_EQ(GetParentFolder(folder / "no/a.xml", false), folder / "no");
    EXPECT_EQ(GetFileNameOnly("/srv/a.xml"), "a.xml");
    EXPECT_EQ(AddTrailingBackslash("  /srv/my forms "), "/srv/my forms/");
    EXPECT_EQ(AddTrailingBackslash("/srv/"), "/srv/");
}

TEST(modMain, FindsTheHelpFileBesideTheProgram) {
    EXPECT_EQ(GetHelpFileName(), "test_app.chm");
    EXPECT_EQ(GetHelpFilePath(), parentFolder(programPath()) + "/test_app.chm");
}

TEST(modMain, SeesLocksAndTheLockFileOfAnOffice) {
    const TemporaryFolder folder;
    folder.put("orders.dotx", "");
    EXPECT_FALSE(IsFileLocked(folder / "orders.dotx"));
    EXPECT_TRUE(IsFileLocked(folder / "nothing.dotx"));
    folder.put(".~lock.orders.dotx#", ",user,host;");
    EXPECT_TRUE(IsFileLocked(folder / "orders.dotx"));
    std::filesystem::remove(folder / ".~lock.orders.dotx#");
    const int file = open((folder / "orders.dotx").c_str(), O_RDWR);
    ASSERT_EQ(flock(file, LOCK_EX), 0);
    EXPECT_TRUE(IsFileLocked(folder / "orders.dotx"));
    close(file);
}

TEST(modMain, DeletesTheStructureDocumentOnlyWhenAsked) {
    const TemporaryFolder folder;
    folder.put("-orders.xml", "");
    const auto deleteWith = [&](std::vector<std::string> arguments) {
        std::string raw;
        GetCommandLineArguments(CommandLineText::fromArguments(arguments), raw);
        DeleteXmlFileIfRequested();
        return !fileExists(folder / "-orders.xml");
    };
    EXPECT_FALSE(deleteWith({"-xmlfile", folder / "-orders.xml"}));
    EXPECT_FALSE(deleteWith({"-deletexmlfile", "-xmlfile", folder.path()}));
    EXPECT_TRUE(folderExists(folder.path()));
    EXPECT_TRUE(deleteWith({"-xmlfile", folder / "-orders.xml", "-deletexmlfile"}));
    EXPECT_TRUE(deleteWith({"-xmlfile", folder / "-orders.xml", "-deletexmlfile"}));

    folder.put("-orders.xml", std::string("SQLite format 3\0", 16));
    EXPECT_FALSE(deleteWith({"-xmlfile", folder / "-orders.xml", "-deletexmlfile"})) << "a database";
}

}  // namespace
}  // namespace mergeloom
