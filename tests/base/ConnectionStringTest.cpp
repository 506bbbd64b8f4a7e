#include "base/ConnectionString.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

TEST(ConnectionString, FindsPasswords) {
    const struct {
        std::string_view connection;
        bool hasPassword;
    } cases[] = {
        {"DSN=shop;PWD=gull", true},
        {"DSN=shop; password = {gu;ll}", true},
        {"pwd=", true},
        {"PWD", true},
        {"DSN={a;PWD=b}", false},
        {"DSN={a}};PWD=b};UID=c", false},
        {"DSN={a}};};PWD=b", true},
        {"DSN={never closed;PWD=b", false},
        {"DSN=pwd;UID=password", false},
        {"shop", false},
        {"", false},
    };
    for (const auto& [connection, expected] : cases)
        EXPECT_EQ(hasPassword(connection), expected) << connection;
}

}  // namespace
}  // namespace mergeloom
