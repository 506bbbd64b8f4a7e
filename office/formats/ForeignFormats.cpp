#include "office/formats/ForeignFormats.h"

#include <algorithm>
#include <array>

namespace mergeloom {

namespace {

// Templates of OpenDocument are no format that can be saved in, so they have no number elsewhere.
constexpr std::array<std::string_view, 10> kWordExtensions{"doc", "dot",  "rtf", "odt", "ott",
                                                           "htm", "html", "txt", "xml", "fodt"};
constexpr std::array<std::string_view, 13> kExcelExtensions{
    "xls", "xlt", "xlsb", "ods", "ots", "fods", "csv", "txt", "slk", "dif", "htm", "html", "xml"};

}  // namespace

bool isForeignWordExtension(std::string_view extension) {
    return std::ranges::find(kWordExtensions, extension) != kWordExtensions.end();
}

bool isForeignExcelExtension(std::string_view extension) {
    return std::ranges::find(kExcelExtensions, extension) != kExcelExtensions.end();
}

}  // namespace mergeloom
