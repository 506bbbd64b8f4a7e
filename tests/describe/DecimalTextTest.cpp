#include "describe/DecimalText.h"

#include <gtest/gtest.h>

namespace mergeloom::describe {
namespace {

TEST(DecimalText, RoundsHalvesAwayFromZero) {
    const struct {
        const char* number;
        int decimals;
        const char* rounded;
    } cases[] = {
        {"0", 0, "0"},
        {"1.005", 2, "1.01"},
        {"-1.005", 2, "-1.01"},
        {"9.995", 2, "10.00"},
        {"-0.004", 2, "0.00"},
        {".5", 0, "1"},
        {"0012.30", 3, "12.300"},
        {"99.5", 0, "100"},
        {"922337203685477.5807", 2, "922337203685477.58"},
    };
    for (const auto& [number, decimals, rounded] : cases)
        EXPECT_EQ(roundedDecimal(number, decimals), rounded) << number;
}

TEST(DecimalText, ComparesByValue) {
    // Each is less than the next one.
    const char* const ordered[] = {"-10", "-9.5", "-0.01", "0",    "0.009", "0.01",
                                   "1",   "9",    "10.00", "10.1", "abc",   "abd"};
    for (std::size_t left = 0; left < std::size(ordered); ++left) {
        for (std::size_t right = 0; right < std::size(ordered); ++right) {
            const int compared = compareDecimals(ordered[left], ordered[right]);
            EXPECT_EQ(compared < 0, left < right) << ordered[left] << " " << ordered[right];
            EXPECT_EQ(compared > 0, left > right) << ordered[left] << " " << ordered[right];
        }
    }
    EXPECT_EQ(compareDecimals("-0.0", "0"), 0);
    EXPECT_EQ(compareDecimals("010", "+10.00"), 0);
}

TEST(DecimalText, KnowsNumbers) {
    for (const char* const number : {"1", "-1", "+1.", ".5", "1.50"})
        EXPECT_TRUE(isDecimal(number)) << number;
    for (const char* const text : {"", "-", "1e5", "1,5", "1.2.3", "0x1", " 1"})
        EXPECT_FALSE(isDecimal(text)) << text;
    EXPECT_FALSE(isDecimal("."));
}

}  // namespace
}  // namespace mergeloom::describe
