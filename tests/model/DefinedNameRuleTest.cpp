#include "office/model/excel/DefinedNameRule.h"

#include <gtest/gtest.h>

namespace mergeloom::excel {
namespace {

TEST(DefinedName, IsWhatExcelTakesForOne) {
    for (const std::string& name :
         {std::string("a"), std::string("_"), std::string("\\a"), std::string("Größe"), std::string("売上"),
          std::string("a.b?c\\1"), std::string("AMM"), std::string("XFE1"), std::string("A1048577"),
          std::string("Truely"), std::string("R1C1x"), std::string("RCR"), std::string("CR"),
          std::string("_xlnm.Print_Area"), std::string(255, 'x')}) {
        EXPECT_TRUE(isDefinedName(name)) << name;
    }
    for (const std::string& name :
         {std::string(""),         std::string("1a"),        std::string(".a"),         std::string("?a"),
          std::string("a b"),      std::string("a-b"),       std::string("a!b"),        std::string("$A$1"),
          std::string("AMM1"),     std::string("a1"),        std::string("XFD1048576"), std::string("R"),
          std::string("c"),        std::string("RC"),        std::string("R1C1"),       std::string("r12c"),
          std::string("RC7"),      std::string("R99999999"), std::string("true"),       std::string("FALSE"),
          std::string("a\u00A0b"), std::string(256, 'x')}) {
        EXPECT_FALSE(isDefinedName(name)) << name;
    }
}

}  // namespace
}  // namespace mergeloom::excel
