#include <gtest/gtest.h>

#include <QApplication>

/// Runs the tests of windows. A program that only lists its tests needs no display.
int main(int count, char** values) {
    testing::InitGoogleTest(&count, values);
    if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
    const QApplication application(count, values);
    return RUN_ALL_TESTS();
}
