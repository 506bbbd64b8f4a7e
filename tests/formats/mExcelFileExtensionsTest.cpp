#include "formats/Families.h"
#include "office/formats/mExcelFileExtensions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace mergeloom {
namespace {

constexpr int kAllNumbers[] = {-4158, -4143, 2,  4,  5,  6,  7,  8,  9,  11, 14, 15, 16, 17, 18, 19, 20,
                               21,    22,    23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 38,
                               39,    40,    41, 42, 43, 44, 45, 46, 50, 51, 52, 53, 54, 55, 56, 60};

TEST(ExcelFileExtensions, NameTheFormatsOfTheDialogs) {
    const struct {
        int format;
        std::string name;
    } cases[] = {
        {-4158, "Current Platform Text"},
        {2, "SYLK (Symbolic Link)"},
        {6, "CSV (Comma delimited)"},
        {9, "DIF (Data Interchange Format)"},
        {17, "Excel 97 - 2003 Template"},
        {19, "Text (Macintosh)"},
        {21, "Text (MS-DOS)"},
        {22, "CSV (Macintosh)"},
        {24, "CSV (MS-DOS)"},
        {36, "Formatted Text (Space delimited)"},
        {39, "Microsoft Excel 5.0/95 Workbook"},
        {42, "Unicode Text"},
        {44, "Web Page"},
        {45, "Single File Web Page"},
        {46, "XML Spreadsheet 2003"},
        {50, "Excel Binary Workbook"},
        {51, "Excel Workbook"},
        {52, "Excel Macro-Enabled Workbook"},
        {53, "Excel Template Macro Enabled"},
        {54, "Excel Template"},
        {56, "Excel 97-2003 Workbook"},
        {60, "OpenDocument Spreadsheet"},
    };
    for (const auto& [format, name] : cases)
        EXPECT_EQ(formatName(kExcel, format), name);
    EXPECT_EQ(
        std::ranges::count_if(kAllNumbers, [](int format) { return !formatName(kExcel, format).empty(); }),
        std::size(cases));
}

TEST(ExcelFileExtensions, GiveEachFormatItsExtension) {
    const struct {
        std::string extension;
        std::vector<int> formats;
    } cases[] = {
        {"txt", {-4158, 19, 20, 21, 42}},
        {"xls", {-4143, 16, 18, 27, 29, 33, 39, 43, 56}},
        {"slk", {2}},
        {"wks", {4}},
        {"wk1", {5, 30, 31}},
        {"csv", {6, 22, 23, 24}},
        {"dbf", {7, 8, 11}},
        {"dif", {9}},
        {"wj2", {14}},
        {"wk3", {15, 32}},
        {"xlt", {17}},
        {"", {25, 26, 28}},
        {"wq1", {34}},
        {"xlw", {35}},
        {"prn", {36}},
        {"wk4", {38}},
        {"wj3", {40, 41}},
        {"htm", {44}},
        {"mht", {45}},
        {"xml", {46}},
        {"xlsb", {50}},
        {"xlsx", {51}},
        {"xlsm", {52}},
        {"xltm", {53}},
        {"xltx", {54}},
        {"xlam", {55}},
        {"ods", {60}},
    };
    std::size_t count = 0;
    for (const auto& [extension, formats] : cases) {
        count += formats.size();
        for (const int format : formats) {
            EXPECT_EQ(formatExtension(kExcel, format), extension) << format;
            EXPECT_EQ(formatExtension(kExcel, format, LeadingDot::With),
                      extension.empty() ? "" : "." + extension);
        }
    }
    EXPECT_EQ(count, std::size(kAllNumbers));
    EXPECT_EQ(extensionFilter(formatExtension(kExcel, 45)), "*.mht;*.mhtml");
}

TEST(ExcelFileExtensions, TellTemplatesAndAddInsFromWorkbooks) {
    for (const int format : kAllNumbers) {
        const bool isTemplate = format == 17 || format == 53 || format == 54;
        const bool isAddIn = format == 18 || format == 26 || format == 55;
        const int expected = isTemplate ? 2 : isAddIn ? 3 : 1;
        EXPECT_EQ(static_cast<int>(officeDocumentType(kExcel, format)), expected) << format;
    }
}

TEST(ExcelFileExtensions, KnowNoOtherNumbers) {
    for (const int format : {-4157, -1, 0, 1, 3, 10, 12, 13, 37, 47, 49, 57, 59, 61}) {
        SCOPED_TRACE(format);
        EXPECT_EQ(formatName(kExcel, format), "");
        EXPECT_EQ(formatExtension(kExcel, format, LeadingDot::With), "");
        try {
            officeDocumentType(kExcel, format);
            FAIL() << "a kind was found";
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), 30000U);
            EXPECT_EQ(error.description(), "unknown ExcelOfficeDocumentType " + std::to_string(format));
        }
    }
}

TEST(ExcelFileExtensions, OfferEveryFormatThatHasAName) {
    const std::span<const FileFormat> offered = offeredFormats(kExcel);
    EXPECT_EQ(offered.front().number, kExcelDefaultFormat);
    for (const int format : kAllNumbers) {
        const std::ptrdiff_t times = std::ranges::count(offered, format, &FileFormat::number);
        EXPECT_EQ(times, formatName(kExcel, format).empty() ? 0 : 1) << format;
    }
}

TEST(ExcelFileExtensions, FindTheFormatThatUsersMean) {
    const struct {
        std::string extension;
        int format;
    } cases[] = {
        {"xlsx", 51}, {"xlsm", 52}, {"xltx", 54}, {"xltm", 53},  {"xlsb", 50}, {"xls", 56},
        {"xlt", 17},  {"ods", 60},  {"csv", 6},   {"txt", 42},   {"prn", 36},  {"xml", 46},
        {"htm", 44},  {"html", 44}, {"mht", 45},  {"mhtml", 45}, {"slk", 2},   {"dif", 9},
        {"XLSX", 0},  {".xlsx", 0}, {"docx", 0},  {"xlam", 0},   {"dbf", 0},   {"", 0},
    };
    for (const auto& [extension, format] : cases) {
        EXPECT_EQ(excelFormatByExtension(extension), format) << extension;
        EXPECT_EQ(isExcelExtension(extension), format != 0) << extension;
    }
}

}  // namespace
}  // namespace mergeloom
