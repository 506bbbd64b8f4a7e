#include "formats/Families.h"
#include "office/formats/OfferedFormats.h"
#include "office/formats/mExcelFileExtensions.h"
#include "office/formats/mWordFileExtensions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mergeloom {
namespace {

using testing::ElementsAre;

std::vector<int> numbersOf(const std::vector<OfferedFormat>& offered) {
    std::vector<int> numbers;
    numbers.reserve(offered.size());
    for (const OfferedFormat& format : offered)
        numbers.push_back(format.number);
    return numbers;
}

bool always(int) {
    return true;
}

TEST(OfferedFormats, FollowTheVersion) {
    EXPECT_THAT(numbersOf(offeredFormats(kWord, 16, always)),
                ElementsAre(12, 13, 0, 14, 15, 1, 17, 18, 8, 6, 2, 3, 19, 11, 23));
    EXPECT_THAT(numbersOf(offeredFormats(kWord, 11, always)), ElementsAre(0, 1, 8, 6, 2, 3, 11));
    EXPECT_THAT(numbersOf(offeredFormats(kExcel, 11, always)),
                ElementsAre(17, 45, 44, 46, 6, 42, -4158, 36, 9, 2, 39, 24, 22, 21, 19));
    EXPECT_EQ(offeredFormats(kExcel, 16, always).size(), offeredFormats(kExcel).size());
    EXPECT_EQ(offeredFormats(kWord, 0, always).size(), offeredFormats(kWord).size()) << "an unknown version";
}

TEST(OfferedFormats, LeaveOutWhatCannotBeWrittenHere) {
    const auto offered = offeredFormats(kWord, 16, [](int format) { return format == 8 || format == 9; });
    ASSERT_EQ(offered.size(), 1U);
    EXPECT_EQ(offered[0].number, 8);
    EXPECT_EQ(offered[0].name, "Web Page");
    EXPECT_EQ(offered[0].filter, "*.htm;*.html");
    EXPECT_THAT(numbersOf(offeredFormats(kExcel, 16, [](int format) { return format > 50; })),
                ElementsAre(51, 52, 56, 54, 53, 60));
    EXPECT_EQ(offeredFormats(kExcel, 16, always)[0].name, "Excel Workbook");
    EXPECT_EQ(offeredFormats(kExcel, 16, always)[0].filter, "*.xlsx");
}

TEST(OfferedFormats, OfThoseWithOneExtensionTheFirstThatCanBeWrittenCounts) {
    EXPECT_EQ(writableFormat(kWord, "xml", always), 19);
    EXPECT_EQ(writableFormat(kWord, "xml", [](int format) { return format != 19; }), 11);
    EXPECT_EQ(writableFormat(kWord, "xml", [](int) { return false; }), 19);
    EXPECT_EQ(writableFormat(kWord, "html", [](int format) { return format != 8; }), 10);
    EXPECT_EQ(writableFormat(kExcel, "txt", [](int format) { return format != 42; }), -4158);
    EXPECT_EQ(writableFormat(kExcel, "foo", always), kNoExcelFormat);
}

TEST(ForeignFormats, AreNoneOfOpenPackaging) {
    for (const char* const own :
         {"docx", "docm", "dotx", "dotm", "xlsx", "xlsm", "xltx", "xltm", "", "png"}) {
        EXPECT_FALSE(isForeignExtension(kWord, own)) << own;
        EXPECT_FALSE(isForeignExtension(kExcel, own)) << own;
    }
    for (const char* const word : {"doc", "dot", "rtf", "odt", "ott", "fodt"}) {
        EXPECT_TRUE(isForeignExtension(kWord, word)) << word;
        EXPECT_FALSE(isForeignExtension(kExcel, word)) << word;
    }
    for (const char* const excel : {"xls", "xlt", "xlsb", "ods", "ots", "fods", "csv", "slk", "dif"}) {
        EXPECT_TRUE(isForeignExtension(kExcel, excel)) << excel;
        EXPECT_FALSE(isForeignExtension(kWord, excel)) << excel;
    }
}

}  // namespace
}  // namespace mergeloom
