#include "office/libreoffice/host/CaretPlacer.h"

#include <gtest/gtest.h>

#include <vector>

namespace mergeloom::libreoffice {
namespace {

TEST(ClickUntilMoved, RepeatsAClickThatWasLost) {
    struct Case {
        const char* what;
        NearestCaret before;
        std::vector<NearestCaret> after;
        std::size_t clicks;
    };
    const Case cases[] = {
        {"moved at once", {0, 13}, {{13, 13}}, 1},
        {"moved elsewhere, as below the last line", {0, 4}, {{17, 4}}, 1},
        {"into another paragraph", {2, 5}, {{-1, 5}}, 1},
        {"it was there before", {13, 13}, {{13, 13}}, 1},
        {"the first click was lost", {0, 13}, {{0, 13}, {13, 13}}, 2},
        {"the office does not move it", {0, 3}, {{0, 3}, {0, 3}, {0, 3}}, 3},
    };
    for (const Case& given : cases) {
        std::size_t clicks = 0;
        clickUntilMoved(given.before, [&] { return given.after.at(clicks++); });
        EXPECT_EQ(clicks, given.clicks) << given.what;
    }
}

}  // namespace
}  // namespace mergeloom::libreoffice
