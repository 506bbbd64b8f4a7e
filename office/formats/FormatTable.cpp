#include "office/formats/FormatTable.h"

#include "office/formats/mFileExtensions.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace mergeloom {

namespace {

// Short names of the values in the tables, so that a row fits into a line.
constexpr auto kDocument = OfficeDocumentType::Document;
constexpr auto kTemplate = OfficeDocumentType::Template;
constexpr auto kAddIn = OfficeDocumentType::AddIn;
constexpr auto kOffered = InDialogs::Offered;
constexpr auto kHidden = InDialogs::Hidden;
constexpr auto kNoVersion = SavedBy::NoVersion;
constexpr auto kEveryVersion = SavedBy::EveryVersion;
constexpr auto kBefore2007 = SavedBy::VersionsBefore2007;
constexpr auto kSince2002 = SavedBy::VersionsSince2002;
constexpr auto kSince2003 = SavedBy::VersionsSince2003;
constexpr auto kSince2007 = SavedBy::VersionsSince2007;
constexpr auto kExchange = SavedBy::VersionsThatExchange;

constexpr auto kMarked = Places::Kept;
constexpr auto kPlain = Places::Lost;
constexpr auto kNone = std::nullopt;
constexpr OfficeFilter kDetected{};

constexpr OfficeFilter filter(std::string_view name, std::string_view options = {}) {
    return {name, options};
}

constexpr std::string_view kTextFilter = "Text (encoded)";
constexpr std::string_view kHtmlFilter = "HTML (StarWriter)";

constexpr OpenPackagingKind kDocx{
    "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"};
constexpr OpenPackagingKind kDocm{"application/vnd.ms-word.document.macroEnabled.main+xml", Macros::Kept};
constexpr OpenPackagingKind kDotx{
    "application/vnd.openxmlformats-officedocument.wordprocessingml.template.main+xml"};
constexpr OpenPackagingKind kDotm{"application/vnd.ms-word.template.macroEnabledTemplate.main+xml",
                                  Macros::Kept};

/// LibreOffice has no filter that writes a single file web page (9), a template with macros (15), XPS (18) or
/// the flat forms of Open Packaging (19 to 22).
constexpr FileFormat kWordFormats[] = {
    {12, "Word Document", "docx", kDocument, kOffered, kSince2007, kMarked, kDocx, filter("MS Word 2007 XML"),
     kDetected},
    {13, "Word Macro-Enabled Document", "docm", kDocument, kOffered, kSince2007, kMarked, kDocm,
     filter("MS Word 2007 XML VBA"), kDetected},
    {0, "Word 97-2003 Document", "doc", kDocument, kOffered, kEveryVersion, kMarked, kNone,
     filter("MS Word 97"), kDetected},
    {14, "XML Template", "dotx", kTemplate, kOffered, kSince2007, kMarked, kDotx,
     filter("MS Word 2007 XML Template"), kDetected},
    {15, "XML Template Macro Enabled", "dotm", kTemplate, kOffered, kSince2007, kMarked, kDotm, kNone,
     kDetected},
    {1, "Word Template", "dot", kTemplate, kOffered, kEveryVersion, kMarked, kNone,
     filter("MS Word 97 Vorlage"), kDetected},
    {17, "PDF", "pdf", kDocument, kOffered, kExchange, kPlain, kNone, filter("writer_pdf_Export")},
    {18, "XPS Document", "xps", kDocument, kOffered, kExchange},
    {9, "Single File Web Page", "mht", kDocument, kOffered},
    {8, "Web Page", "htm", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter(kHtmlFilter, "EmbedImages"), filter(kHtmlFilter)},
    {10, "Web Page, Filtered", "htm", kDocument, kOffered, kNoVersion, kPlain, kNone,
     filter(kHtmlFilter, "EmbedImages")},
    {6, "Rich Text Format", "rtf", kDocument, kOffered, kEveryVersion, kMarked, kNone,
     filter("Rich Text Format"), kDetected},
    {2, "Plain Text", "txt", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter(kTextFilter, "UTF8,LF"), filter("Text")},
    {3, "Text Line Breaks", "txt", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter(kTextFilter, "UTF8,LF")},
    {19, "Word XML Document", "xml", kDocument, kOffered, kExchange},
    {11, "Word 2003 XML Document", "xml", kDocument, kOffered, kSince2003, kMarked, kNone,
     filter("MS Word 2003 XML"), kDetected},
    {23, "OpenDocument Text", "odt", kDocument, kOffered, kExchange, kMarked, kNone, filter("writer8"),
     kDetected},
    {4, "DOS Text", "txt", kDocument, kHidden, kNoVersion, kPlain, kNone,
     filter(kTextFilter, "IBM_850,CRLF")},
    {5, "DOS Text Line Breaks", "txt", kDocument, kHidden, kNoVersion, kPlain, kNone,
     filter(kTextFilter, "IBM_850,CRLF")},
    {7, "Unicode Text", "txt", kDocument, kHidden, kNoVersion, kPlain, kNone,
     filter(kTextFilter, "UCS2,CRLF")},
    {16, "Document Default", "", kDocument, kHidden, kSince2007},
    {20, "Word XML Document Macro Enabled", "", kDocument, kHidden, kExchange},
    {21, "Word XML Template", "", kTemplate},
    {22, "Word XML Template Macro Enabled", "", kTemplate},
    {kOpenedOnly, "OpenDocument Text Template", "ott", kTemplate, kHidden, kNoVersion, kMarked, kNone, kNone,
     kDetected},
    {kOpenedOnly, "Flat OpenDocument Text", "fodt", kDocument, kHidden, kNoVersion, kMarked, kNone, kNone,
     kDetected},
};

constexpr std::string_view kExcel97 = "MS Excel 97";
/// The filter that writes web pages does not read them. Its options are the language of numbers (the
/// system's) and whether texts that look like dates become some; without them the office would ask.
constexpr std::string_view kHtmlQuery = "calc_HTML_WebQuery";
constexpr std::string_view kPlainCells = "0 0";
constexpr std::string_view kUtf8 = "76";

/// Options of a text: separator, quotation mark and encoding as numbers, first line; then the kinds of cells
/// that are quoted, and whether cells are written as shown. Separators: 44 comma, 9 tab, FIX columns of fixed
/// width. Encodings: 76 UTF-8, 65535 UTF-16, 1 Windows, 2 Macintosh, 4 DOS.
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

/// Documents and templates first, then other formats that keep a workbook whole, last those that keep a part
/// of it. Add-ins are not offered, since their sheets are never shown. LibreOffice has no filter that writes
/// workbooks and templates of before Excel 97, add-ins, the binary workbook (50), a template with macros (53)
/// or a single file web page (45), and its filter for the XML of Excel 2003 (46) fails.
constexpr FileFormat kExcelFormats[] = {
    // Excel's own formats, with and without macros, and the "xls" of 97 and later; then their templates.
    {51, "Excel Workbook", "xlsx", kDocument, kOffered, kSince2007, kMarked, kXlsx,
     filter("Calc MS Excel 2007 XML"), kDetected},
    {52, "Excel Macro-Enabled Workbook", "xlsm", kDocument, kOffered, kSince2007, kMarked, kXlsm,
     filter("Calc MS Excel 2007 VBA XML"), kDetected},
    {56, "Excel 97-2003 Workbook", "xls", kDocument, kOffered, kSince2007, kMarked, kNone, filter(kExcel97),
     kDetected},
    {54, "Excel Template", "xltx", kTemplate, kOffered, kSince2007, kMarked, kXltx,
     filter("Calc MS Excel 2007 XML Template"), kDetected},
    {53, "Excel Template Macro Enabled", "xltm", kTemplate, kOffered, kSince2007, kMarked, kXltm, kNone,
     kDetected},
    {17, "Excel 97 - 2003 Template", "xlt", kTemplate, kOffered, kEveryVersion, kMarked, kNone,
     filter("MS Excel 97 Vorlage/Template"), kDetected},
    // Keeps everything, but few programs read it.
    {50, "Excel Binary Workbook", "xlsb", kDocument, kOffered, kSince2007, kMarked, kNone, kNone, kDetected},
    // For other office programs.
    {60, "OpenDocument Spreadsheet", "ods", kDocument, kOffered, kExchange, kMarked, kNone, filter("calc8"),
     kDetected},
    // All sheets in one file of a browser, the same beside a folder, and the cells of all sheets.
    {45, "Single File Web Page", "mht", kDocument, kOffered, kSince2002},
    {44, "Web Page", "htm", kDocument, kOffered, kEveryVersion, kPlain, kNone, filter("HTML (StarCalc)"),
     filter(kHtmlQuery, kPlainCells)},
    {46, "XML Spreadsheet 2003", "xml", kDocument, kOffered, kSince2002, kPlain, kNone, kNone, kDetected},
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
     kDetected},
    // After 56, whose extension it shares.
    {39, "Microsoft Excel 5.0/95 Workbook", "xls", kDocument, kOffered, kEveryVersion},
    // The encodings of obsolete systems.
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
     kNone, kDetected},
    {kOpenedOnly, "Flat OpenDocument Spreadsheet", "fods", kDocument, kHidden, kNoVersion, kMarked, kNone,
     kNone, kDetected},
};

}  // namespace

std::span<const FileFormat> wordFormats() {
    return kWordFormats;
}

std::span<const FileFormat> excelFormats() {
    return kExcelFormats;
}

std::span<const FileFormat> fileFormats(DocumentFamily family) {
    return family == DocumentFamily::Word ? wordFormats() : excelFormats();
}

const FileFormat* findFormat(DocumentFamily family, int number) {
    if (number == kOpenedOnly) return nullptr;
    const std::span<const FileFormat> formats = fileFormats(family);
    const auto found = std::ranges::find(formats, number, &FileFormat::number);
    return found == formats.end() ? nullptr : &*found;
}

std::string engineExtensions(DocumentFamily family, Macros macros) {
    std::vector<std::string_view> extensions;
    for (const FileFormat& format : fileFormats(family)) {
        if (format.engine && (macros == Macros::Refused || format.engine->macros == Macros::Kept))
            extensions.push_back(format.extension);
    }
    std::string text;
    for (std::size_t index = 0; index < extensions.size(); ++index) {
        if (index > 0) text += index + 1 == extensions.size() ? " or " : ", ";
        text += extensions[index];
    }
    return text;
}

std::string macroRefusal(DocumentFamily family) {
    const std::string document = family == DocumentFamily::Word ? "document" : "workbook";
    return "the " + document + " holds macros, which its format cannot keep. Choose " +
           engineExtensions(family, Macros::Kept) + ".";
}

const FileFormat* findFormatToOpen(DocumentFamily family, std::string_view extension) {
    const std::span<const FileFormat> formats = fileFormats(family);
    const auto found = std::ranges::find_if(formats, [&](const FileFormat& format) {
        return fitsFormat(extension, format.extension) && (format.engine || format.opening);
    });
    return found == formats.end() ? nullptr : &*found;
}

bool isForeignExtension(DocumentFamily family, std::string_view extension) {
    const FileFormat* const format = findFormatToOpen(family, extension);
    return format != nullptr && !format->engine;
}

std::optional<DocumentFamily> familyOf(std::string_view extension) {
    const auto isKnown = [&](const FileFormat& format) { return fitsFormat(extension, format.extension); };
    const bool isWords = std::ranges::any_of(wordFormats(), isKnown);
    if (isWords == std::ranges::any_of(excelFormats(), isKnown)) return {};
    return isWords ? DocumentFamily::Word : DocumentFamily::Excel;
}

}  // namespace mergeloom
