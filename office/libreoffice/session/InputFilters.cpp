#include "office/libreoffice/session/InputFilters.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string>

namespace mergeloom::libreoffice {

namespace {

constexpr std::string_view kWordText = "Text";
constexpr std::string_view kWordTextEncoded = "Text (encoded)";
constexpr std::string_view kExcelText = "Text - txt - csv (StarCalc)";
/// The filter that writes web pages does not read them.
constexpr std::string_view kExcelHtml = "calc_HTML_WebQuery";

/// Without options the office would ask for them. Of a web page's: the language of its numbers (the system's)
/// and whether texts that look like dates become some; of DIF: the encoding, here UTF-8.
constexpr std::string_view kPlainCells = "0 0";
constexpr std::string_view kUtf8 = "76";

struct InputFilter {
    OfficePart part;
    std::string_view extension;
    OfficeFilter filter;
};

constexpr InputFilter kFilters[] = {
    {OfficePart::Word, "htm", {"HTML (StarWriter)"}},
    {OfficePart::Word, "html", {"HTML (StarWriter)"}},
    {OfficePart::Word, "txt", {kWordText}},
    {OfficePart::Excel, "htm", {kExcelHtml, kPlainCells}},
    {OfficePart::Excel, "html", {kExcelHtml, kPlainCells}},
    {OfficePart::Excel, "dif", {"DIF", kUtf8}},
    {OfficePart::Excel, "csv", {kExcelText, "44,34,76,1"}},
    {OfficePart::Excel, "txt", {kExcelText, "9,34,76,1"}},
};

}  // namespace

OfficeFilter inputFilter(OfficePart part, std::string_view extension) {
    std::string small(extension);
    std::ranges::transform(small, small.begin(), [](unsigned char letter) { return std::tolower(letter); });
    const auto* const found = std::ranges::find_if(
        kFilters, [&](const InputFilter& known) { return known.part == part && known.extension == small; });
    return found == std::end(kFilters) ? OfficeFilter{} : found->filter;
}

bool readsAnything(std::string_view filterName) {
    return filterName == kWordText || filterName == kWordTextEncoded || filterName == kExcelText;
}

}  // namespace mergeloom::libreoffice
