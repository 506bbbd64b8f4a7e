#include "base/AutomationError.h"
#include "office/embedded/sheet/StyleSheet.h"

#include <gtest/gtest.h>

#include <string>

namespace mergeloom::embedded {
namespace {

StyleSheet sheetOfStyles(const std::string& children) {
    return {"<styleSheet>" + children + "</styleSheet>", "/xl/styles.xml", "Orders.xlsx"};
}

const std::string kFonts =
    "<fonts><font><sz val=\"9\"/><name val=\"Arial\"/></font>"
    "<font><b/><i val=\"0\"/><sz val=\"12.5\"/><name val=\"Segoe UI\"/></font>"
    "<font><b val=\"0\"/><i val=\"1\"/><name val=\"\"/><sz val=\"-3\"/></font></fonts>";

TEST(StyleSheet, DefaultFontIsThatOfTheNormalStyle) {
    const struct {
        std::string styles, name;
        double size;
    } cases[] = {
        {"", "Calibri", 11},
        {kFonts, "Arial", 9},
        {kFonts + "<cellStyleXfs><xf fontId=\"0\"/><xf fontId=\"1\"/></cellStyleXfs><cellStyles>"
                  "<cellStyle name=\"Bad\" xfId=\"0\" builtinId=\"27\"/>"
                  "<cellStyle name=\"Standard\" xfId=\"1\" builtinId=\"0\"/></cellStyles>",
         "Segoe UI", 12.5},
        {kFonts + "<cellStyleXfs><xf fontId=\"1\"/></cellStyleXfs>", "Arial", 9},
        {kFonts + "<cellStyleXfs><xf fontId=\"9\"/></cellStyleXfs><cellStyles>"
                  "<cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/></cellStyles>",
         "Arial", 9},
        {kFonts + "<cellStyles><cellStyle name=\"Normal\" xfId=\"5\" builtinId=\"0\"/></cellStyles>", "Arial",
         9},
    };
    for (const auto& [styles, name, size] : cases) {
        const StyleSheet sheet = sheetOfStyles(styles);
        EXPECT_EQ(sheet.defaultFont().name, name) << styles;
        EXPECT_EQ(sheet.defaultFont().size, size) << styles;
        EXPECT_EQ(sheet.fontOf(3).name, name) << "an index without a format";
    }
    EXPECT_EQ(StyleSheet().defaultFont().name, "Calibri");
}

TEST(StyleSheet, FormatsTellFontProtectionAndAlignment) {
    const StyleSheet sheet = sheetOfStyles(
        kFonts +
        "<cellXfs><xf fontId=\"1\"/><xf fontId=\"2\"><protection hidden=\"1\"/></xf>"
        "<xf><alignment wrapText=\"1\"/><protection locked=\"0\"/></xf>"
        "<xf><alignment textRotation=\"90\"/></xf><xf><alignment shrinkToFit=\"true\"/></xf>"
        "<xf><alignment wrapText=\"0\" textRotation=\"0\" horizontal=\"center\"/></xf></cellXfs>");
    EXPECT_TRUE(sheet.fontOf(0).bold);
    EXPECT_FALSE(sheet.fontOf(0).italic);
    EXPECT_EQ(sheet.fontOf(1).name, "Calibri");
    EXPECT_EQ(sheet.fontOf(1).size, 11);
    EXPECT_FALSE(sheet.fontOf(1).bold);
    EXPECT_TRUE(sheet.fontOf(1).italic);
    EXPECT_TRUE(sheet.isLocked(1));
    EXPECT_FALSE(sheet.isLocked(2));
    const bool fits[] = {false, false, true, true, true, false, false};
    for (int style = 0; style < 7; ++style)
        EXPECT_EQ(sheet.skipsAutoFit(style), fits[style]) << style;
    EXPECT_TRUE(sheet.isLocked(-1));
    EXPECT_TRUE(sheet.isLocked(6));
}

TEST(StyleSheet, ReadsPrefixes) {
    const StyleSheet sheet(
        "<x:styleSheet><x:fonts><x:font><x:name val=\"Arial\"/></x:font></x:fonts>"
        "<x:cellXfs><x:xf><x:protection locked=\"0\"/></x:xf></x:cellXfs></x:styleSheet>",
        "/xl/styles.xml", "Orders.xlsx");
    EXPECT_EQ(sheet.defaultFont().name, "Arial");
    EXPECT_FALSE(sheet.isLocked(0));
}

TEST(StyleSheet, MalformedOnesAreRefused) {
    for (const char* xml : {"<styleSheet><fonts></styleSheet>", "<workbook/>", ""}) {
        try {
            const StyleSheet sheet(xml, "/xl/styles.xml", "Orders.xlsx");
            FAIL() << xml;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), kFileCouldNotBeRead);
            EXPECT_NE(error.description().find("Orders.xlsx"), std::string::npos);
            EXPECT_NE(error.description().find("/xl/styles.xml"), std::string::npos);
        }
    }
}

}  // namespace
}  // namespace mergeloom::embedded
