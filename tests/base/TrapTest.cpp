#include "base/ErrorHandler.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

namespace mergeloom {
namespace {

class KeptReport final : public ErrorHandler {
  public:
    void report(const ErrorReport& reported) override { kept = reported; }
    ErrorReport kept;
};

std::string placeAt(int line) {
    return "tests/base/TrapTest.cpp:" + std::to_string(line);
}

TEST(Trap, TellsThePlaceThatThrew) {
    KeptReport errors;
    int line = 0;
    trap(errors, "modMain", "Main", [&] {
        line = __LINE__ + 1;
        throw AutomationError(9, "No item.");
    });
    EXPECT_EQ(errors.kept.place, placeAt(line));
    EXPECT_EQ(shownProcedure(errors.kept), "modMain.Main (" + placeAt(line) + ")");
}

TEST(Trap, TellsItsOwnPlaceForOtherErrors) {
    KeptReport errors;
    const int line = __LINE__ + 1;
    trap(errors, "modMain", "Main", [] { throw std::bad_alloc(); });
    EXPECT_EQ(errors.kept.place, placeAt(line));
}

}  // namespace
}  // namespace mergeloom
