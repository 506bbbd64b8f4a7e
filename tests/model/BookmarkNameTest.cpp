#include "base/AutomationError.h"
#include "office/model/word/BookmarkName.h"

#include <gtest/gtest.h>

namespace mergeloom::word {
namespace {

TEST(BookmarkName, IsWhatWordTakesForOne) {
    for (const std::string& name :
         {std::string("a"), std::string("_a1"), std::string("Größe"), std::string("売上"),
          std::string(40, 'x'), std::string("é") + std::string(39, 'x')}) {
        EXPECT_TRUE(isBookmarkName(name)) << name;
        EXPECT_NO_THROW(checkBookmarkName(name));
    }
    for (const std::string& name :
         {std::string(""), std::string("1a"), std::string("a b"), std::string("a-b"), std::string("a."),
          std::string("a\u2028"), std::string(41, 'x')}) {
        EXPECT_FALSE(isBookmarkName(name)) << name;
        EXPECT_THROW(checkBookmarkName(name), AutomationError);
    }
}

}  // namespace
}  // namespace mergeloom::word
