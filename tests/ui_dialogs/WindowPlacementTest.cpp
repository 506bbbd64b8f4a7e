#include "ui/dialogs/WindowPlacement.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

TEST(WindowPlacement, LeavesAPointVisibleWhereTheScreenHasRoom) {
    const QRect screen(0, 0, 1000, 800);
    const struct {
        const char* description;
        QRect window;
        QPoint point;
        QPoint expected;
    } cases[] = {
        {"it is elsewhere", {10, 10, 300, 200}, {800, 600}, {10, 10}},
        {"to the right", {300, 300, 300, 200}, {400, 400}, {480, 300}},
        {"to the left", {500, 300, 300, 200}, {700, 400}, {320, 300}},
        {"below, for a wide one", {50, 100, 900, 200}, {500, 200}, {50, 250}},
        {"above, at the lower edge", {50, 550, 900, 200}, {500, 650}, {50, 400}},
        {"moved into the screen beside the point", {400, 700, 300, 200}, {500, 780}, {580, 600}},
        {"no room at all", {0, 0, 990, 790}, {500, 400}, {0, 0}},
    };
    for (const auto& one : cases)
        EXPECT_EQ(placeBeside(one.window, one.point, screen), one.expected) << one.description;
}

}  // namespace
}  // namespace mergeloom
