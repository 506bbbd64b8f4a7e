#include "office/formats/mOfficeVersion.h"

#include "base/Text.h"
#include "office/formats/mIsOffice2007SP2orLaterDummy.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace mergeloom {

namespace {

constexpr int kLargestVersion = 255;
constexpr int kWord2003 = 11;
constexpr int kWord2007 = 12;
constexpr int kWord2010 = 14;

/// Formats that every Word writes: documents and templates of 97 to 2003, text, rich text and web pages.
constexpr std::array kEverySince97{0, 1, 2, 3, 6, 8};
constexpr int kXml2003 = 11;
constexpr int kFirstOpenXml = 12;
constexpr int kLastOpenXml = 16;
constexpr int kFirstExchange = 17;
constexpr int kLastExchange = 20;
constexpr int kOpenDocument = 23;

bool isBetween(int value, int first, int last) {
    return first <= value && value <= last;
}

bool writesExchangeFormats(int wordVersion) {
    return wordVersion >= kWord2010 || (wordVersion == kWord2007 && isOffice2007SP2orLater());
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
    if (std::find(kEverySince97.begin(), kEverySince97.end(), format) != kEverySince97.end()) return true;
    if (format == kXml2003 && wordVersion >= kWord2003) return true;
    if (isBetween(format, kFirstOpenXml, kLastOpenXml) && wordVersion >= kWord2007) return true;
    if (!writesExchangeFormats(wordVersion)) return false;
    return isBetween(format, kFirstExchange, kLastExchange) || format == kOpenDocument;
}

}  // namespace mergeloom
