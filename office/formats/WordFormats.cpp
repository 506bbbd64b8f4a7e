#include "office/formats/FormatColumns.h"

namespace mergeloom {

namespace {

using namespace columns;

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
     kFoundOut},
    {13, "Word Macro-Enabled Document", "docm", kDocument, kOffered, kSince2007, kMarked, kDocm,
     filter("MS Word 2007 XML VBA"), kFoundOut},
    {0, "Word 97-2003 Document", "doc", kDocument, kOffered, kEveryVersion, kMarked, kNone,
     filter("MS Word 97"), kFoundOut},
    {14, "XML Template", "dotx", kTemplate, kOffered, kSince2007, kMarked, kDotx,
     filter("MS Word 2007 XML Template"), kFoundOut},
    {15, "XML Template Macro Enabled", "dotm", kTemplate, kOffered, kSince2007, kMarked, kDotm, kNone,
     kFoundOut},
    {1, "Word Template", "dot", kTemplate, kOffered, kEveryVersion, kMarked, kNone,
     filter("MS Word 97 Vorlage"), kFoundOut},
    {17, "PDF", "pdf", kDocument, kOffered, kExchange, kPlain, kNone, filter("writer_pdf_Export")},
    {18, "XPS Document", "xps", kDocument, kOffered, kExchange},
    {9, "Single File Web Page", "mht", kDocument, kOffered},
    {8, "Web Page", "htm", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter(kHtmlFilter, "EmbedImages"), filter(kHtmlFilter)},
    {10, "Web Page, Filtered", "htm", kDocument, kOffered, kNoVersion, kPlain, kNone,
     filter(kHtmlFilter, "EmbedImages")},
    {6, "Rich Text Format", "rtf", kDocument, kOffered, kEveryVersion, kMarked, kNone,
     filter("Rich Text Format"), kFoundOut},
    {2, "Plain Text", "txt", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter(kTextFilter, "UTF8,LF"), filter("Text")},
    {3, "Text Line Breaks", "txt", kDocument, kOffered, kEveryVersion, kPlain, kNone,
     filter(kTextFilter, "UTF8,LF")},
    {19, "Word XML Document", "xml", kDocument, kOffered, kExchange},
    {11, "Word 2003 XML Document", "xml", kDocument, kOffered, kSince2003, kMarked, kNone,
     filter("MS Word 2003 XML"), kFoundOut},
    {23, "OpenDocument Text", "odt", kDocument, kOffered, kExchange, kMarked, kNone, filter("writer8"),
     kFoundOut},
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
     kFoundOut},
    {kOpenedOnly, "Flat OpenDocument Text", "fodt", kDocument, kHidden, kNoVersion, kMarked, kNone, kNone,
     kFoundOut},
};

}  // namespace

std::span<const FileFormat> wordFormats() {
    return kWordFormats;
}

}  // namespace mergeloom
