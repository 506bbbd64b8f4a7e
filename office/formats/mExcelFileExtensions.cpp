#include "office/formats/mExcelFileExtensions.h"

#include <algorithm>
#include <iterator>

namespace mergeloom {

namespace {

constexpr auto kWorkbook = ExcelOfficeDocumentType::Workbook;
constexpr auto kTemplate = ExcelOfficeDocumentType::Template;
constexpr auto kAddIn = ExcelOfficeDocumentType::AddIn;

struct ExcelFormat {
    int number;
    std::string_view extension;
    ExcelOfficeDocumentType type;
    std::string_view name = {};
};

/// The formats without a name are those of other programs and of old versions, which no dialog offers.
constexpr ExcelFormat kFormats[] = {
    {-4158, "txt", kWorkbook, "Current Platform Text"},
    {-4143, "xls", kWorkbook},
    {2, "slk", kWorkbook, "SYLK (Symbolic Link)"},
    {4, "wks", kWorkbook},
    {5, "wk1", kWorkbook},
    {6, "csv", kWorkbook, "CSV (Comma delimited)"},
    {7, "dbf", kWorkbook},
    {8, "dbf", kWorkbook},
    {9, "dif", kWorkbook, "DIF (Data Interchange Format)"},
    {11, "dbf", kWorkbook},
    {14, "wj2", kWorkbook},
    {15, "wk3", kWorkbook},
    {16, "xls", kWorkbook},
    {17, "xlt", kTemplate, "Excel 97 - 2003 Template"},
    {18, "xls", kAddIn},
    {19, "txt", kWorkbook, "Text (Macintosh)"},
    {20, "txt", kWorkbook},
    {21, "txt", kWorkbook, "Text (MS-DOS)"},
    {22, "csv", kWorkbook, "CSV (Macintosh)"},
    {23, "csv", kWorkbook},
    {24, "csv", kWorkbook, "CSV (MS-DOS)"},
    {25, "", kWorkbook},
    {26, "", kAddIn},
    {27, "xls", kWorkbook},
    {28, "", kWorkbook},
    {29, "xls", kWorkbook},
    {30, "wk1", kWorkbook},
    {31, "wk1", kWorkbook},
    {32, "wk3", kWorkbook},
    {33, "xls", kWorkbook},
    {34, "wq1", kWorkbook},
    {35, "xlw", kWorkbook},
    {36, "prn", kWorkbook, "Formatted Text (Space delimited)"},
    {38, "wk4", kWorkbook},
    {39, "xls", kWorkbook, "Microsoft Excel 5.0/95 Workbook"},
    {40, "wj3", kWorkbook},
    {41, "wj3", kWorkbook},
    {42, "txt", kWorkbook, "Unicode Text"},
    {43, "xls", kWorkbook},
    {44, "htm", kWorkbook, "Web Page"},
    {45, "mht", kWorkbook, "Single File Web Page"},
    {46, "xml", kWorkbook, "XML Spreadsheet 2003"},
    {50, "xlsb", kWorkbook, "Excel Binary Workbook"},
    {51, "xlsx", kWorkbook, "Excel Workbook"},
    {52, "xlsm", kWorkbook, "Excel Macro-Enabled Workbook"},
    {53, "xltm", kTemplate, "Excel Template Macro Enabled"},
    {54, "xltx", kTemplate, "Excel Template"},
    {55, "xlam", kAddIn},
    {56, "xls", kWorkbook, "Excel 97-2003 Workbook"},
    {60, "ods", kWorkbook, "OpenDocument Spreadsheet"},
};

/// Documents, templates, then what else keeps a workbook whole and last what keeps a part of it. Add-ins are
/// left out: nobody sees the sheets of one.
constexpr int kOffered[] = {
    51,     // what Excel makes by itself
    52,     // the same with macros
    56,     // what "xls" has meant since 97
    54,     // the templates of 51,
    53,     // of 52
    17,     // and of 56
    50,     // keeps everything, but few programs read it
    60,     // what other office programs read
    45,     // all sheets in one file of a browser
    44,     // the same beside a folder
    46,     // the cells of all sheets
    6,      // the plain list of other programs, in the system's own encoding
    42,     // the first text: no letter is lost in it
    -4158,  // the same in the system's own encoding
    36,     // for printing
    9,      // for programs older than that: values alone
    2,      // and with formulas
    39,     // behind 56, whose extension it shares
    24,     // the encodings of systems that are gone: lists for DOS
    22,     // and the Macintosh,
    21,     // texts for DOS
    19,     // and the Macintosh
};

const ExcelFormat* findFormat(int format) {
    const auto* const found = std::ranges::find(kFormats, format, &ExcelFormat::number);
    return found == std::end(kFormats) ? nullptr : found;
}

}  // namespace

std::string excelFormatName(int format) {
    const ExcelFormat* const found = findFormat(format);
    return found == nullptr ? std::string() : std::string(found->name);
}

std::string excelExtension(int format, LeadingDot dot) {
    const ExcelFormat* const found = findFormat(format);
    return found == nullptr ? std::string() : dottedExtension(found->extension, dot);
}

ExcelOfficeDocumentType excelOfficeDocumentType(int format) {
    const ExcelFormat* const found = findFormat(format);
    if (found == nullptr) {
        throw AutomationError(kUnknownOfficeDocumentType,
                              "unknown ExcelOfficeDocumentType " + std::to_string(format));
    }
    return found->type;
}

std::string excelFilter(int format) {
    return extensionFilter(excelExtension(format));
}

std::span<const int> offeredExcelFormats() {
    return kOffered;
}

int excelFormatByExtension(std::string_view extension) {
    const auto* const found = std::ranges::find_if(
        kOffered, [&](int format) { return fitsFormat(extension, excelExtension(format)); });
    return found == std::end(kOffered) ? kNoExcelFormat : *found;
}

bool isExcelExtension(std::string_view extension) {
    return excelFormatByExtension(extension) != kNoExcelFormat;
}

}  // namespace mergeloom
