#include "base/Paths.h"
#include "doubles/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

TEST(Paths, KnowsTheNamesOfOneFile) {
    const TemporaryFolder folder;
    folder.put("plain", "");
    folder.put("other", "");
    EXPECT_TRUE(isSameFile(folder / "plain", folder / "./plain"));
    EXPECT_FALSE(isSameFile(folder / "plain", folder / "other"));
    EXPECT_FALSE(isSameFile(folder / "plain", folder / "nothing"));
}

TEST(Paths, RemovesFiles) {
    const TemporaryFolder folder;
    folder.put("plain", "");
    std::filesystem::create_directories(folder / "full/of");
    removeFile(folder / "plain");
    removeFile(folder / "plain");
    EXPECT_FALSE(fileExists(folder / "plain"));
    EXPECT_THROW(removeFile(folder / "full"), AutomationError);
}

TEST(Paths, KnowsTheProgramAndTheTemporaryFolder) {
    EXPECT_TRUE(fileNameOnly(programPath()).starts_with("test_base"));
    EXPECT_TRUE(folderExists(temporaryFolder()));
}

}  // namespace
}  // namespace mergeloom
