#include "droppers/LinkedFields.h"

#include <gtest/gtest.h>

namespace mergeloom {
namespace {

TEST(LinkedNames, OfControlSources) {
    using Names = std::vector<std::string>;
    struct Case {
        std::string source;
        Names expected;
    };
    const std::vector<Case> cases{
        {"=Sum([Price])*[Qty]", {"Price", "Qty"}},
        {"=Sum([Price]*[Qty])", {"Price", "Qty"}},
        {"=([Unit Price])", {"Unit Price"}},
        {"=Nz( [Price], 0)", {"Price"}},
        {"=Round(Sum([Price]), 2)", {"Price"}},
        {"=Date() & Sum([Price])", {"Price"}},
        {"=Sum([Price]) & \" [Qty]\"", {"Price"}},
        {"=[Qty]*[Price]", {}},
        {"=Sum(Price)*[Qty]", {}},
        {"=DLookup(\"([Town])\")", {}},
        {"=Sum([Price]", {}},
        {"=Sum([Price)", {}},
        {"Price", {}},
        {"", {}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(linkedNames(c.source), c.expected) << c.source;
    }
}

}  // namespace
}  // namespace mergeloom
