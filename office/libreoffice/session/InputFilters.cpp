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

struct InputFilter {
    OfficePart part;
    std::string_view extension;
    OfficeFilter filter;
};

constexpr InputFilter kFilters[] = {
    {OfficePart::Word, "htm", {"HTML (StarWriter)"}},
    {OfficePart::Word, "html", {"HTML (StarWriter)"}},
    {OfficePart::Word, "txt", {kWordText}},
    {OfficePart::Excel, "htm", {"HTML (StarCalc)"}},
    {OfficePart::Excel, "html", {"HTML (StarCalc)"}},
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
