#include "office/libreoffice/session/WordFilters.h"

#include <algorithm>
#include <iterator>

namespace mergeloom::libreoffice {

namespace {

struct WordFilter {
    int format;
    OfficeFilter filter;
};

constexpr std::string_view kText = "Text (encoded)";
constexpr std::string_view kHtml = "HTML (StarWriter)";
constexpr std::string_view kWithPictures = "EmbedImages";

/// Not here, because the office has no filter for them: a single file web page (9), a template with macros
/// (15), XPS (18) and the flat forms of Open Packaging (19 to 22).
constexpr WordFilter kFilters[] = {
    {0, {"MS Word 97"}},
    {1, {"MS Word 97 Vorlage"}},
    {2, {kText, "UTF8,LF"}},
    {3, {kText, "UTF8,LF"}},
    {4, {kText, "IBM_850,CRLF"}},
    {5, {kText, "IBM_850,CRLF"}},
    {6, {"Rich Text Format"}},
    {7, {kText, "UCS2,CRLF"}},
    {8, {kHtml, kWithPictures}},
    {10, {kHtml, kWithPictures}},
    {11, {"MS Word 2003 XML"}},
    {12, {"MS Word 2007 XML"}},
    {13, {"MS Word 2007 XML VBA"}},
    {14, {"MS Word 2007 XML Template"}},
    {17, {"writer_pdf_Export"}},
    {23, {"writer8"}},
};

}  // namespace

std::optional<OfficeFilter> filterFor(word::WdSaveFormat format) {
    const auto* const found = std::ranges::find(kFilters, static_cast<int>(format), &WordFilter::format);
    if (found == std::end(kFilters)) return std::nullopt;
    return found->filter;
}

}  // namespace mergeloom::libreoffice
