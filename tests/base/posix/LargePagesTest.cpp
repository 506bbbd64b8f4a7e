#include "base/LargePages.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace mergeloom {
namespace {

/// Returns true if the system has been asked for large pages in a part of this process's heap.
bool hasLargePagesInHeap() {
    std::ifstream areas("/proc/self/smaps");
    bool isHeap = false;
    for (std::string line; std::getline(areas, line);) {
        if (line.find(" rw-p ") != std::string::npos) isHeap = line.ends_with("[heap]");
        if (isHeap && line.starts_with("VmFlags:") && line.find(" hg") != std::string::npos) return true;
    }
    return false;
}

TEST(LargePages, AreUsedForTheHeap) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "The sanitizer has a heap of its own.";
#endif
    if (!std::filesystem::exists("/sys/kernel/mm/transparent_hugepage"))
        GTEST_SKIP() << "The system has none.";
    // In a process of its own, which begins with an empty heap.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_FALSE(hasLargePagesInHeap());
    EXPECT_EXIT((useLargePages(), std::exit(hasLargePagesInHeap() ? 0 : 1)), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace mergeloom
