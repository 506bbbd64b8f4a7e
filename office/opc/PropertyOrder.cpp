#include "office/opc/PropertyOrder.h"

#include "office/opc/XmlPart.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>

namespace mergeloom::opc {

namespace {

/// The order of properties (ECMA-376 Part 1, 17.3.2.28, 17.3.1.26, 17.6.17 and 17.3.1.19).
constexpr std::string_view kOrder[] = {
    // of runs
    "rStyle",
    "rFonts",
    "b",
    "bCs",
    "i",
    "iCs",
    "caps",
    "smallCaps",
    "strike",
    "dstrike",
    "outline",
    "shadow",
    "emboss",
    "imprint",
    "noProof",
    "snapToGrid",
    "vanish",
    "webHidden",
    "color",
    "spacing",
    "w",
    "kern",
    "position",
    "sz",
    "szCs",
    "highlight",
    "u",
    "effect",
    "bdr",
    "shd",
    "fitText",
    "vertAlign",
    "rtl",
    "cs",
    "em",
    "lang",
    "eastAsianLayout",
    "specVanish",
    "oMath",
    "rPrChange"};

constexpr std::string_view kParagraphOrder[] = {"pStyle",
                                                "keepNext",
                                                "keepLines",
                                                "pageBreakBefore",
                                                "framePr",
                                                "widowControl",
                                                "numPr",
                                                "suppressLineNumbers",
                                                "pBdr",
                                                "shd",
                                                "tabs",
                                                "suppressAutoHyphens",
                                                "kinsoku",
                                                "wordWrap",
                                                "overflowPunct",
                                                "topLinePunct",
                                                "autoSpaceDE",
                                                "autoSpaceDN",
                                                "bidi",
                                                "adjustRightInd",
                                                "snapToGrid",
                                                "spacing",
                                                "ind",
                                                "contextualSpacing",
                                                "mirrorIndents",
                                                "suppressOverlap",
                                                "jc",
                                                "textDirection",
                                                "textAlignment",
                                                "textboxTightWrap",
                                                "outlineLvl",
                                                "divId",
                                                "cnfStyle",
                                                "rPr",
                                                "sectPr",
                                                "pPrChange"};

constexpr std::string_view kSectionOrder[] = {
    "headerReference", "footerReference", "footnotePr",      "endnotePr",   "type",          "pgSz",
    "pgMar",           "paperSrc",        "pgBorders",       "lnNumType",   "pgNumType",     "cols",
    "formProt",        "vAlign",          "noEndnote",       "titlePg",     "textDirection", "bidi",
    "rtlGutter",       "docGrid",         "printerSettings", "sectPrChange"};

constexpr std::string_view kNumberingOrder[] = {"ilvl", "numId", "numberingChange", "ins"};

std::span<const std::string_view> orderOf(std::string_view properties) {
    if (properties == "pPr") return kParagraphOrder;
    if (properties == "sectPr") return kSectionOrder;
    if (properties == "numPr") return kNumberingOrder;
    return kOrder;
}

std::ptrdiff_t rankOf(std::span<const std::string_view> order, std::string_view name) {
    return std::ranges::find(order, name) - order.begin();
}

}  // namespace

pugi::xml_node requireChild(pugi::xml_node properties, std::string_view name, const WordNames& names) {
    const std::string qualified = names.element(name);
    if (const pugi::xml_node found = properties.child(qualified.c_str())) return found;
    const auto order = orderOf(localName(properties));
    const std::ptrdiff_t rank = rankOf(order, name);
    for (const pugi::xml_node child : properties.children())
        if (rankOf(order, localName(child)) > rank)
            return properties.insert_child_before(qualified.c_str(), child);
    return properties.append_child(qualified.c_str());
}

}  // namespace mergeloom::opc
