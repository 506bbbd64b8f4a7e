#include "app/LibraryFile.h"
#include "app/mGetResourceString.h"
#include "doubles/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <random>

namespace mergeloom {
namespace {

LibraryFile sampleLibrary(LibraryFormat format) {
    LibraryFile library(format);
    library.add(1, u"Müll 😀");
    library.add(15, u"the last of its block");
    library.add(16, u"the first of its block");
    library.add(4097, std::u16string(300, u'x'));
    library.add(65535, u"the last of all");
    return library;
}

TEST(mGetResourceString, ReadsTheStringsOfALibrary) {
    const TemporaryFolder folder;
    for (const LibraryFormat format : {LibraryFormat::Pe32, LibraryFormat::Pe32Plus}) {
        folder.put("strings.dll", sampleLibrary(format).bytes());
        const std::string path = folder / "strings.dll";
        EXPECT_EQ(GetResourceString(path, 1), "Müll 😀");
        EXPECT_EQ(GetResourceString(path, 15), "the last of its block");
        EXPECT_EQ(GetResourceString(path, 16), "the first of its block");
        EXPECT_EQ(GetResourceString(path, 4097), std::string(259, 'x'));
        EXPECT_EQ(GetResourceString(path, 65535), "the last of all");
        for (const std::int32_t missing : {0, 2, 17, 40, 65536 + 1, -1}) {
            EXPECT_EQ(GetResourceString(path, missing), "") << missing;
        }
    }
}

TEST(mGetResourceString, IsEmptyWhereThereIsNoLibrary) {
    const TemporaryFolder folder;
    folder.put("text.dll", "MZ and no more than some words");
    folder.put("empty.dll", "");
    for (const char* name : {"text.dll", "empty.dll", "missing.dll", "."}) {
        EXPECT_EQ(GetResourceString(folder / name, 1), "") << name;
    }
}

TEST(ResourceStrings, SurviveEveryCutAndEveryFlippedByte) {
    const std::string whole = sampleLibrary(LibraryFormat::Pe32Plus).bytes();
    const std::u16string last = u"the last of all";
    ASSERT_EQ(resourceString(whole, 65535), last);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        // A copy of its own, so that a look beyond its end shows.
        const std::string cut = whole.substr(0, size);
        EXPECT_EQ(resourceString(cut, 65535), u"") << size;
    }
    for (std::size_t place = 0; place < whole.size(); ++place) {
        for (const char mask : {'\x01', '\x80', '\xFF'}) {
            std::string flipped = whole;
            flipped[place] = static_cast<char>(flipped[place] ^ mask);
            EXPECT_LE(resourceString(flipped, 65535).size(), 0xFFFFU);
        }
    }
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        std::string damaged = whole;
        for (int k = 0; k < 8; ++k)
            damaged[random() % damaged.size()] = static_cast<char>(random());
        EXPECT_LE(resourceString(damaged, random() % 70000).size(), 0xFFFFU);
    }
}

}  // namespace
}  // namespace mergeloom
