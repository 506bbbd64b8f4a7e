#include "app/TemplateNames.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace mergeloom {
namespace {

TEST(TemplateNames, AreThoseOfTheObjectsWherePossible) {
    TemplateNames names("dotx");
    const std::string longName(300, 'x');
    const std::pair<std::string, std::string> cases[] = {
        {"Orders", "Orders.dotx"},
        {"ORDERS", "ORDERS_2.dotx"},
        {"orders_2", "orders_2_2.dotx"},
        {"orders", "orders_3.dotx"},
        {"A/B", "A_B.dotx"},
        {"A:B", "A_B_2.dotx"},
        {"Größe", "Größe.dotx"},
        {"GRÖSSE", "GRÖSSE.dotx"},
        {"grÖße", "grÖße_2.dotx"},
        {"../up", ".._up.dotx"},
        {"Report 1.", "Report 1.dotx"},
        {"nul", "nul_.dotx"},
        {longName, std::string(250, 'x') + ".dotx"},
        {longName, std::string(248, 'x') + "_2.dotx"},
    };
    for (const auto& [object, expected] : cases)
        EXPECT_EQ(names.nameFor(object), expected) << object;
}

}  // namespace
}  // namespace mergeloom
