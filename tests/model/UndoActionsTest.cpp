#include "office/model/Undo.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace mergeloom::model {
namespace {

TEST(UndoActions, TakeTheLastChangeBackFirstAndEachOnce) {
    std::string undone;
    UndoActions actions;
    for (const char change : {'a', 'b', 'c', 'd'}) {
        actions.add([&undone, change] {
            if (change == 'c') throw std::runtime_error("gone");
            undone += change;
        });
    }
    EXPECT_THROW(actions.undo(), std::runtime_error);
    EXPECT_EQ(undone, "d");
    actions.undo();
    EXPECT_EQ(undone, "dba");
    EXPECT_TRUE(actions.isEmpty());
    actions.undo();
    EXPECT_EQ(undone, "dba");
}

}  // namespace
}  // namespace mergeloom::model
