#include "office/formats/FormatColumns.h"

namespace mergeloom {

namespace {

using namespace columns;

constexpr std::string_view kExcel97 = "MS Excel 97";
/// The filter that writes web pages does not read them. Its options are the language of numbers (the
/// system's) and whether texts that look like dates become some; without them the office would ask.
constexpr std::string_view kHtmlQuery = "calc_HTML_WebQuery";
constexpr std::string_view kPlainCells = "0 0";
constexpr std::string_view kUtf8 = "76";

/// Options of a text: separator, quotation mark and encoding as numbers, first line; then what is quoted, and
/// cells as they show. Separators: 44 comma, 9 tab, FIX columns of fixed width. Encodings: 76 UTF-8, 65535
/// UTF-16, 1 Windows, 2 Macintosh, 4 DOS.
constexpr std::string_view kTextTable = "Text - txt - csv (StarCalc)";
constexpr std::string_view kCommaUtf8 = "44,34,76,1,,0,false,true,false";
constexpr std::string_view kCommaWindows = "44,34,1,1,,0,false,true,false";
constexpr std::string_view kCommaMacintosh = "44,34,2,1,,0,false,true,false";
constexpr std::string_view kCommaDos = "44,34,4,1,,0,false,true,false";
constexpr std::string_view kTabUtf8 = "9,34,76,1,,0,false,true,false";
constexpr std::string_view kTabUtf16 = "9,34,65535,1,,0,false,true,false";
constexpr std::string_view kTabWindows = "9,34,1,1,,0,false,true,false";
constexpr std::string_view kTabMacintosh = "9,34,2,1,,0,false,true,false";
constexpr std::string_view kTabDos = "9,34,4,1,,0,false,true,false";
constexpr std::string_view kColumnsUtf8 = "FIX,34,76,1,,0,false,true,false";

constexpr OpenPackagingKind kXlsx{
    "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"};
constexpr OpenPackagingKind kXlsm{"application/vnd.ms-excel.sheet.macroEnabled.main+xml", Macros::Kept};
constexpr OpenPackagingKind kXltx{
    "application/vnd.openxmlformats-officedocument.spreadsheetml.template.main+xml"};
constexpr OpenPackagingKind kXltm{"application/vnd.ms-excel.template.macroEnabled.main+xml", Macros::Kept};

/// Documents, templates, then what else keeps a workbook whole and last what keeps a part of it. Add-ins are
/// not offered, since nobody sees the sheets of one. LibreOffice has no filter that writes workbooks and
/// templates of before Excel 97, add-ins, the binary workbook (50), a template with macros (53) or a single
/// file web page (45), and its filter for the XML of Excel 2003 (46) fails.
constexpr FileFormat kExcelFormats[] = {
    // What Excel makes by itself, with and without macros, and what "xls" has meant since 97; then the
    // templates of these.
    {51, "Excel Workbook", "xlsx", kDocument, kOffered, kSince2007, kMarked, kXlsx,
     filter("Calc MS Excel 2007 XML"), kFoundOut},
    {52, "Excel Macro-Enabled Workbook", "xlsm", kDocument, kOffered, kSince2007, kMarked, kXlsm,
     filter("Calc MS Excel 2007 VBA XML"), kFoundOut},
    {56, "Excel 97-2003 Workbook", "xls", kDocument, kOffered, kSince2007, kMarked, kNone, filter(kExcel97),
     kFoundOut},
    {54, "Excel Template", "xltx", kTemplate, kOffered, kSince2007, kMarked, kXltx,
     filter("Calc MS Excel 2007 XML Template"), kFoundOut},
    {53, "Excel Template Macro Enabled", "xltm", kTemplate, kOffered, kSince2007, kMarked, kXltm, kNone,
     kFoundOut},
    {17, "Excel 97 - 2003 Template", "xlt", kTemplate, kOffered, kEveryVersion, kMarked, kNone,
     filter("MS Excel 97 Vorlage/Template"), kFoundOut},
    // It keeps everything, but few programs read it.
    {50, "Excel Binary Workbook", "xlsb", kDocument, kOffered, kSince2007, kMarked, kNone, kNone, kFoundOut},
    // What other office programs read.
    {60, "OpenDocument Spreadsheet", "ods", kDocument, kOffered, kExchange, kMarked, kNone, filter("calc8"),
     kFoundOut},
    // All sheets in one file of a browser, the same beside a folder, and the cells of all sheets.
    {45, "Single File Web Page", "mht", kDocument, kOffered, kSince2002},
    {44, "Web Page", "htm", kDocument, kOffered, kEveryVersion, kPlain, kNone, filter("HTML (StarCalc)"),
     filter(kHtmlQuery, kPlainCells)},
    {46, "XML Spreadsheet 2003", "xml", kDocument, kOffered, kSince2002, kPlain, kNone, kNone, kFoundOut},
    // The plain list of other programs; then the texts, first the one in which no letter is lost.
    {6, "CSV (Comma delimited)", "csv", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter(kTextTable, kCommaUtf8), filter(kTextTable, "44,34,76,1")},
    {42, "Unicode Text", "txt", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter(kTextTable, kTabUtf16)},
    {-4158, "Current Platform Text", "txt", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter(kTextTable, kTabUtf8), filter(kTextTable, "9,34,76,1")},
    // For printing; then values alone, and with formulas, for old programs.
    {36, "Formatted Text (Space delimited)", "prn", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter(kTextTable, kColumnsUtf8)},
    {9, "DIF (Data Interchange Format)", "dif", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter("DIF"), filter("DIF", kUtf8)},
    {2, "SYLK (Symbolic Link)", "slk", kDocument, kOffered, kEveryVersion, kPlain, kNone, filter("SYLK"),
     kFoundOut},
    // After 56, whose extension it shares.
    {39, "Microsoft Excel 5.0/95 Workbook", "xls", kDocument, kOffered, kEveryVersion},
    // The encodings of systems that are gone.
    {24, "CSV (MS-DOS)", "csv", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter(kTextTable, kCommaDos)},
    {22, "CSV (Macintosh)", "csv", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter(kTextTable, kCommaMacintosh)},
    {21, "Text (MS-DOS)", "txt", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter(kTextTable, kTabDos)},
    {19, "Text (Macintosh)", "txt", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter(kTextTable, kTabMacintosh)},
    {-4143, "", "xls", kDocument, kHidden, kEveryVersion, kMarked, kNone, filter(kExcel97)},
    {4, "", "wks"},
    // Worksheets of Lotus 1-2-3, written under DOS. Without the encoding LibreOffice asks for it.
    {5, "", "wk1", kDocument, kHidden, kNoVersion, kPlain, kNone, kNone, filter("Lotus", "4")},
    {7, "", "dbf"},
    {8, "", "dbf"},
    {11, "", "dbf"},
    {14, "", "wj2"},
    {15, "", "wk3"},
    {16, "", "xls"},
    {18, "", "xls", kAddIn},
    {20, "", "txt", kDocument, kHidden, kNoVersion, kPlain, kNone, filter(kTextTable, kTabWindows)},
    {23, "", "csv", kDocument, kHidden, kNoVersion, kPlain, kNone, filter(kTextTable, kCommaWindows)},
    {25, "", ""},
    {26, "", "", kAddIn},
    {27, "", "xls"},
    {28, "", ""},
    {29, "", "xls"},
    {30, "", "wk1"},
    {31, "", "wk1"},
    {32, "", "wk3"},
    {33, "", "xls"},
    {34, "", "wq1"},
    {35, "", "xlw"},
    {38, "", "wk4"},
    {40, "", "wj3"},
    {41, "", "wj3"},
    {43, "", "xls", kDocument, kHidden, kBefore2007, kMarked, kNone, filter(kExcel97)},
    {55, "", "xlam", kAddIn},
    {kOpenedOnly, "OpenDocument Spreadsheet Template", "ots", kTemplate, kHidden, kNoVersion, kMarked, kNone,
     kNone, kFoundOut},
    {kOpenedOnly, "Flat OpenDocument Spreadsheet", "fods", kDocument, kHidden, kNoVersion, kMarked, kNone,
     kNone, kFoundOut},
};

}  // namespace

std::span<const FileFormat> excelFormats() {
    return kExcelFormats;
}

}  // namespace mergeloom
