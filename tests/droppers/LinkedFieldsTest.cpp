#include "DropTest.h"
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

class LinkedFields : public DropTest {};

TEST_F(LinkedFields, AreTheNamedSiblings) {
    load(
        "<db><Table Name='T'><Control Name='A' ControlSource='=Sum([C]+[a]+[none]+[B]+[c])'/>"
        "<Control Name='B'/><Control Name='c'/></Table></db>");
    const FieldsByName siblings{xmlNodes, {&node("2k"), &node("3k"), &node("4k")}};
    const ControlNodes expected{&node("4k"), &node("3k")};
    EXPECT_EQ(GetLinkedFields(xmlNodes, node("2k"), siblings), expected);
    EXPECT_EQ(GetLinkedFields(xmlNodes, node("3k"), siblings), ControlNodes{});
}

}  // namespace
}  // namespace mergeloom
