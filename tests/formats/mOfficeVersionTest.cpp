#include "office/formats/mOfficeVersion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace mergeloom {
namespace {

constexpr int kFirstFormat = -1;
constexpr int kLastFormat = 24;

/// Returns true when an application of the version saves the format; no version saves an unknown one.
bool saves(DocumentFamily family, int number, int version) {
    const FileFormat* const format = findFormat(family, number);
    return canSave(format == nullptr ? SavedBy::NoVersion : format->savedBy, version);
}

TEST(OfficeVersion, ReadsTheMajorNumber) {
    const struct {
        std::string version;
        int major;
    } cases[] = {
        {"16.0", 16}, {"11.0.8169", 11}, {" 9", 9}, {"", 0}, {"beta", 0}, {"300.1", 0}, {"-3", 0},
    };
    for (const auto& [version, major] : cases) {
        EXPECT_EQ(majorOfficeVersion(version), major) << version;
    }
}

TEST(OfficeVersion, DecidesWhatAWordCanSave) {
    const struct {
        int version;
        std::vector<int> formats;
    } cases[] = {
        {10, {0, 1, 2, 3, 6, 8}},
        {11, {0, 1, 2, 3, 6, 8, 11}},
        {12, {0, 1, 2, 3, 6, 8, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 23}},
        {13, {0, 1, 2, 3, 6, 8, 11, 12, 13, 14, 15, 16}},
        {14, {0, 1, 2, 3, 6, 8, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 23}},
    };
    for (const auto& [version, formats] : cases) {
        std::vector<int> saved;
        for (int format = kFirstFormat; format <= kLastFormat; ++format) {
            if (saves(DocumentFamily::Word, format, version)) saved.push_back(format);
        }
        EXPECT_EQ(saved, formats) << "version " << version;
    }
    EXPECT_TRUE(saves(DocumentFamily::Word, 7, kUnknownOfficeVersion));
}

TEST(OfficeVersion, DecidesWhatAnExcelCanSave) {
    const std::vector<int> always{-4158, -4143, 2, 6, 9, 17, 19, 21, 22, 24, 36, 39, 42, 44};
    const struct {
        int version;
        std::vector<int> further;
    } cases[] = {
        {9, {43}},
        {10, {43, 45, 46}},
        {11, {43, 45, 46}},
        {12, {45, 46, 50, 51, 52, 53, 54, 56, 60}},
        {13, {45, 46, 50, 51, 52, 53, 54, 56}},
        {14, {45, 46, 50, 51, 52, 53, 54, 56, 60}},
        {16, {45, 46, 50, 51, 52, 53, 54, 56, 60}},
    };
    for (const auto& [version, further] : cases) {
        std::vector<int> saved;
        for (int format = -4200; format <= 70; ++format) {
            const bool isAlways = std::ranges::find(always, format) != always.end();
            if (saves(DocumentFamily::Excel, format, version) && !isAlways) saved.push_back(format);
            if (isAlways) {
                EXPECT_TRUE(saves(DocumentFamily::Excel, format, version))
                    << format << " in version " << version;
            }
        }
        EXPECT_EQ(saved, further) << "version " << version;
    }
    EXPECT_TRUE(saves(DocumentFamily::Excel, 7, kUnknownOfficeVersion));
}

}  // namespace
}  // namespace mergeloom
