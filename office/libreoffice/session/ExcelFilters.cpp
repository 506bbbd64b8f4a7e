#include "office/libreoffice/session/ExcelFilters.h"

#include <algorithm>
#include <iterator>

namespace mergeloom::libreoffice {

namespace {

struct ExcelFilter {
    int format;
    OfficeFilter filter;
};

constexpr std::string_view kText = "Text - txt - csv (StarCalc)";
constexpr std::string_view kExcel97 = "MS Excel 97";

/// Separator, quotation mark and encoding as numbers, first line; then what is quoted, and cells as they
/// show. Separators: 44 comma, 9 tab, FIX columns of fixed width. Encodings: 76 UTF-8, 65535 UTF-16, 1
/// Windows, 2 Macintosh, 4 DOS.
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

/// Not here, because the office has no filter for them: workbooks and templates of before Excel 97, add-ins,
/// the binary workbook (50), a template with macros (53), a single file web page (45) and what other programs
/// of old wrote. The XML of Excel 2003 (46) is missing because the office's filter for it fails.
constexpr ExcelFilter kFilters[] = {
    {-4158, {kText, kTabUtf8}},
    {-4143, {kExcel97}},
    {2, {"SYLK"}},
    {6, {kText, kCommaUtf8}},
    {9, {"DIF"}},
    {17, {"MS Excel 97 Vorlage/Template"}},
    {19, {kText, kTabMacintosh}},
    {20, {kText, kTabWindows}},
    {21, {kText, kTabDos}},
    {22, {kText, kCommaMacintosh}},
    {23, {kText, kCommaWindows}},
    {24, {kText, kCommaDos}},
    {36, {kText, kColumnsUtf8}},
    {42, {kText, kTabUtf16}},
    {43, {kExcel97}},
    {44, {"HTML (StarCalc)"}},
    {51, {"Calc MS Excel 2007 XML"}},
    {52, {"Calc MS Excel 2007 VBA XML"}},
    {54, {"Calc MS Excel 2007 XML Template"}},
    {56, {kExcel97}},
    {60, {"calc8"}},
};

}  // namespace

std::optional<OfficeFilter> filterFor(excel::XlFileFormat format) {
    const auto* const found = std::ranges::find(kFilters, static_cast<int>(format), &ExcelFilter::format);
    if (found == std::end(kFilters)) return std::nullopt;
    return found->filter;
}

}  // namespace mergeloom::libreoffice
