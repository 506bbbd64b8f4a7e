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

TEST(FileNames, WhatFileSystemsRefuse) {
    const std::pair<std::string, std::string> cases[] = {
        {"Offer 5.docx", "Offer 5.docx"},
        {"Größe ≤ 5.docx", "Größe ≤ 5.docx"},
        {"a/b\\c:d*e?f\"g<h>i|j", "a_b_c_d_e_f_g_h_i_j"},
        {std::string("tab\tnul\0end", 11), "tab_nul_end"},
        {"broken \xC3(", "broken _("},
        {"ends. . ", "ends"},
        {"", "_"},
        {"..", "_"},
        {" ", "_"},
        {".profile", ".profile"},
        {"con", "con_"},
        {"NUL.tar.gz", "NUL_.tar.gz"},
        {"Com1.txt", "Com1_.txt"},
        {"lpt².x", "lpt²_.x"},
        {"aux .x", "aux _.x"},
        {"COM10", "COM10"},
        {"CONTENT", "CONTENT"},
        {"COM", "COM"},
    };
    for (const auto& [name, expected] : cases)
        EXPECT_EQ(validFileName(name), expected) << name;
}

TEST(FileNames, LengthInBytes) {
    std::string umlauts;
    for (int i = 0; i < 200; ++i)
        umlauts += "ü";
    const std::string cut = validFileName(umlauts + ".docx");
    EXPECT_EQ(cut, umlauts.substr(0, 250) + ".docx") << "whole letters, and the extension stays";
    EXPECT_EQ(validFileName(umlauts), umlauts.substr(0, 254));
    EXPECT_EQ(validFileName("a." + std::string(300, 'x')), "a." + std::string(253, 'x'));
    EXPECT_EQ(validFileName(std::string(254, 'x') + " y").size(), 254U) << "no blank at the end by the cut";
}

}  // namespace
}  // namespace mergeloom
