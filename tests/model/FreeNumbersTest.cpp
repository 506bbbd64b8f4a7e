#include "base/Text.h"
#include "office/model/FreeNumbers.h"

#include <gtest/gtest.h>

#include <set>

namespace mergeloom::model {
namespace {

/// The names of an office, which ignores letter case.
class Names {
  public:
    void add(const std::string& name) { taken_.insert(foldCase(name)); }
    void remove(const std::string& name) {
        taken_.erase(foldCase(name));
        counters_.release(name);
    }
    std::int64_t firstFree(const std::string& stem) {
        return counters_.firstFree(stem, [&](const std::string& name) {
            ++questions;
            return taken_.contains(foldCase(name));
        });
    }

    int questions = 0;

  private:
    std::set<std::string> taken_;
    FreeNumbers counters_;
};

TEST(FreeNumbers, CountOnFromTheFirstFreeName) {
    Names names;
    for (int number = 1; number <= 112; ++number)
        names.add("A_ref" + std::to_string(number));
    EXPECT_EQ(names.firstFree("a_REF"), 113);
    EXPECT_EQ(names.firstFree("A_ref1"), 13);
    names.questions = 0;
    EXPECT_EQ(names.firstFree("A_ref"), 113);
    EXPECT_EQ(names.questions, 1);
}

TEST(FreeNumbers, KnowEachNameThatIsFreeAgain) {
    Names names;
    for (const char* name : {"A1", "A2", "A3", "A11", "A12", "A9223372036854775808"})
        names.add(name);
    EXPECT_EQ(names.firstFree("A"), 4);
    EXPECT_EQ(names.firstFree("A1"), 3);
    names.remove("a12");
    EXPECT_EQ(names.firstFree("A"), 4);
    EXPECT_EQ(names.firstFree("A1"), 2);
    names.remove("A2");
    names.remove("A3");
    EXPECT_EQ(names.firstFree("A"), 2);
    // Neither a number with a zero before it nor one beyond 64 bits is a counter.
    names.add("A2");
    for (const char* name : {"A02", "A00000000000000000001", "A9223372036854775808", "B1"})
        names.remove(name);
    EXPECT_EQ(names.firstFree("A"), 3);
}

}  // namespace
}  // namespace mergeloom::model
