#include "base/DatabaseFile.h"
#include "doubles/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

TEST(DatabaseFile, IsRecognizedByItsExtensionOrItsFirstBytes) {
    const TemporaryFolder folder;
    const struct {
        std::string name;
        std::string bytes;
        bool isDatabase;
    } cases[] = {
        {"shop.ACCDB", "", true},
        {"shop.db", "<db/>", true},
        {"sqlite", "<db/>", false},
        {"a", std::string("SQLite format 3\0 and more", 25), true},
        {"b", "SQLite format 3", false},
        {"c", std::string("\0\1\0\0Standard Jet DB\0", 20), true},
        {"d", std::string("\0\1\0\0Standard ACE DB", 19), true},
        {"e", "Standard ACE DB", false},
        {"shop.xml", "<db/>", false},
        {"empty.xml", "", false},
    };
    for (const auto& [name, bytes, isDatabase] : cases) {
        folder.put(name, bytes);
        EXPECT_EQ(isDatabaseFile(folder / name), isDatabase) << name;
    }
    EXPECT_TRUE(isDatabaseFile(folder / "missing.mdb"));
    EXPECT_FALSE(isDatabaseFile(folder / "missing"));
}

}  // namespace
}  // namespace mergeloom
