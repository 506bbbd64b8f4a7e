#include "base/AutomationError.h"
#include "base/DatabaseFile.h"
#include "doubles/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace mergeloom {
namespace {

TEST(UnreadableDatabase, IsNoPipeWhoseBytesWouldBeLost) {
    const TemporaryFolder folder;
    // A read would wait for a writer and remove bytes before the next reader gets them.
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(isDatabaseFile(folder / "pipe"));
}

TEST(UnreadableDatabase, IsNotTakenForAnEmptyOne) {
    // The file can be opened, but its first bytes cannot be read.
    EXPECT_THROW(firstBytesOf("/proc/self/mem"), AutomationError);
}

}  // namespace
}  // namespace mergeloom
