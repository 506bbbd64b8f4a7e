#include "office/formats/mOfficeVersion.h"

#include "base/Text.h"
#include "office/formats/mIsOffice2007SP2orLaterDummy.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>

namespace mergeloom {

namespace {

constexpr int kLargestVersion = 255;
constexpr int kOffice2002 = 10;
constexpr int kOffice2003 = 11;
constexpr int kOffice2007 = 12;
constexpr int kOffice2010 = 14;

/// Formats that every Word writes: documents and templates of 97 to 2003, text, rich text and web pages.
constexpr std::array kEverySince97{0, 1, 2, 3, 6, 8};
constexpr int kXml2003 = 11;
constexpr int kFirstOpenXml = 12;
constexpr int kLastOpenXml = 16;
constexpr int kFirstExchange = 17;
constexpr int kLastExchange = 20;
constexpr int kOpenDocumentText = 23;

/// Formats that every Excel writes: the workbook and template of 97 to 2003, the workbook of 95, texts, web
/// pages and the two formats of data exchange.
constexpr std::array kEveryExcel{-4158, -4143, 2, 6, 9, 17, 19, 21, 22, 24, 36, 39, 42, 44};
constexpr std::array kSinceExcel2002{45, 46};
constexpr std::array kSinceExcel2007{50, 51, 52, 53, 54, 56};
/// One file for Excel 95 and 97.
constexpr int kTwoVersionWorkbook = 43;
constexpr int kOpenDocumentSpreadsheet = 60;

bool holds(std::span<const int> formats, int format) {
    return std::ranges::find(formats, format) != formats.end();
}

bool isBetween(int value, int first, int last) {
    return first <= value && value <= last;
}

bool writesExchangeFormats(int version) {
    return version >= kOffice2010 || (version == kOffice2007 && isOffice2007SP2orLater());
}

}  // namespace

int majorOfficeVersion(std::string_view version) {
    const std::string_view digits = trimBlanks(version);
    int number = kUnknownOfficeVersion;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool isVersion = error == std::errc() && isBetween(number, 0, kLargestVersion);
    return isVersion ? number : kUnknownOfficeVersion;
}

bool canWordSave(int format, int wordVersion) {
    if (wordVersion == kUnknownOfficeVersion) return true;
    if (holds(kEverySince97, format)) return true;
    if (format == kXml2003 && wordVersion >= kOffice2003) return true;
    if (isBetween(format, kFirstOpenXml, kLastOpenXml) && wordVersion >= kOffice2007) return true;
    if (!writesExchangeFormats(wordVersion)) return false;
    return isBetween(format, kFirstExchange, kLastExchange) || format == kOpenDocumentText;
}

bool canExcelSave(int format, int excelVersion) {
    if (excelVersion == kUnknownOfficeVersion) return true;
    if (holds(kEveryExcel, format)) return true;
    if (format == kTwoVersionWorkbook) return excelVersion < kOffice2007;
    if (holds(kSinceExcel2002, format)) return excelVersion >= kOffice2002;
    if (holds(kSinceExcel2007, format)) return excelVersion >= kOffice2007;
    return format == kOpenDocumentSpreadsheet && writesExchangeFormats(excelVersion);
}

}  // namespace mergeloom
