#include "describe/SourceFile.h"

#include <gtest/gtest.h>

namespace mergeloom::describe {
namespace {

TEST(SourceFile, NamesItsDatabase) {
    const struct {
        std::string source;
        std::string name;
    } cases[] = {
        {"/srv/shop.db", "shop"},
        {"shop.2024.accdb", "shop.2024"},
        {"odbc:DSN=Sales.2024", "Sales.2024"},
        {"odbc:Sales.2024", "Sales.2024"},
        {"odbc:DRIVER=x;DATABASE=Sales.2024", "Sales.2024"},
        {"odbc:DRIVER=x;Database=/srv/shop.2024.db", "shop.2024"},
        {"odbc:DRIVER=x;Database=shop.db", "shop"},
        {"odbc:DRIVER=x", "database"},
    };
    for (const auto& [source, name] : cases)
        EXPECT_EQ(databaseNameOf(source), name) << source;
}

}  // namespace
}  // namespace mergeloom::describe
