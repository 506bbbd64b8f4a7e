#include "office/graft/WordRules.h"

#include <array>
#include <string_view>

namespace mergeloom::graft {

namespace {

/// Ids that LibreOffice generates for each export, revisions, layers of drawings, positions in the text that
/// Word computes, and dates.
constexpr std::array kVolatileNames{
    VolatileName{"*", "w:rsid*"},
    VolatileName{"*", "w14:paraId"},
    VolatileName{"*", "w14:textId"},
    VolatileName{"*", "wp14:*"},
    VolatileName{"*", "relativeHeight"},
    VolatileName{"*", "o:spid"},
    VolatileName{"wp:docPr", "id"},
    VolatileName{"pic:cNvPr", "id"},
    VolatileName{"wps:cNvPr", "id"},
    VolatileName{"v:*", "id"},
    VolatileName{"v:*", "type"},
    VolatileName{"o:OLEObject", "ShapeID"},
    VolatileName{"o:OLEObject", "ObjectID"},
    VolatileName{"c:axId", "val"},
    VolatileName{"c:crossAx", "val"},
    VolatileName{"w:date", "w:fullDate"},
    VolatileName{"w:proofErr", ""},
    VolatileName{"w:lastRenderedPageBreak", ""},
    VolatileName{"w:bookmarkStart", ""},
    VolatileName{"w:bookmarkEnd", ""},
    VolatileName{"w:zoom", ""},
    VolatileName{"w:rsids", ""},
    VolatileName{"w:id", ""},
    VolatileName{"mc:Fallback", ""},
    VolatileName{"w:txbxContent", ""},
    VolatileName{"dcterms:created", ""},
    VolatileName{"dcterms:modified", ""},
    VolatileName{"cp:lastModifiedBy", ""},
    VolatileName{"cp:revision", ""},
    VolatileName{"cp:lastPrinted", ""},
};

constexpr std::array<std::string_view, 7> kVoidWhenEmpty{"w:rPr",       "w:pPr",   "w:trPr", "w:tcPr",
                                                         "w:tcBorders", "w:sdtPr", "w:r"};

constexpr std::array<std::string_view, 10> kIgnored{
    "/docProps/app.xml", "/word/fontTable.xml", "/word/document.xml", "/word/header*",
    "/word/footer*",     "/word/footnotes.xml", "/word/endnotes.xml", "/word/comments*",
    "/word/media/*",     "/word/embeddings/*"};

}  // namespace

const PartRules& wordRules() {
    static constexpr PartRules kRules{{kVolatileNames, kVoidWhenEmpty}, kIgnored};
    return kRules;
}

}  // namespace mergeloom::graft
