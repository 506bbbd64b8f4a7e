#include "office/embedded/sheet/SheetSections.h"

#include "office/embedded/sheet/XmlScanner.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// The children of CT_Worksheet in the order of the schema (ECMA-376 Part 1, A.2).
constexpr std::array<std::string_view, 39> kOrder{"sheetPr",
                                                  "dimension",
                                                  "sheetViews",
                                                  "sheetFormatPr",
                                                  "cols",
                                                  "sheetData",
                                                  "sheetCalcPr",
                                                  "sheetProtection",
                                                  "protectedRanges",
                                                  "scenarios",
                                                  "autoFilter",
                                                  "sortState",
                                                  "dataConsolidate",
                                                  "customSheetViews",
                                                  "mergeCells",
                                                  "phoneticPr",
                                                  "conditionalFormatting",
                                                  "dataValidations",
                                                  "hyperlinks",
                                                  "printOptions",
                                                  "pageMargins",
                                                  "pageSetup",
                                                  "headerFooter",
                                                  "rowBreaks",
                                                  "colBreaks",
                                                  "customProperties",
                                                  "cellWatches",
                                                  "ignoredErrors",
                                                  "smartTags",
                                                  "drawing",
                                                  "legacyDrawing",
                                                  "legacyDrawingHF",
                                                  "drawingHF",
                                                  "picture",
                                                  "oleObjects",
                                                  "controls",
                                                  "webPublishItems",
                                                  "tableParts",
                                                  "extLst"};

constexpr int kUnknownRank = -1;

int rankOfName(std::string_view name) {
    const auto* found = std::ranges::find(kOrder, name);
    return found == kOrder.end() ? kUnknownRank : static_cast<int>(found - kOrder.begin());
}

}  // namespace

std::string SheetSections::text(std::string_view name) const {
    if (const std::string* replaced = replacement(name)) return *replaced;
    std::string text;
    for (const RootChild& child : index_.children) {
        if (child.name == name) text += child.range.of(xml_);
    }
    return text;
}

const std::string* SheetSections::replacement(std::string_view name) const {
    const auto found = replacements_.find(name);
    return found == replacements_.end() ? nullptr : &found->second;
}

std::optional<std::string> SheetSections::exchange(std::string_view name, std::optional<std::string> xml) {
    std::optional<std::string> former;
    if (const auto found = replacements_.find(name); found != replacements_.end()) {
        former = std::move(found->second);
        replacements_.erase(found);
    }
    if (xml) replacements_.emplace(name, *std::move(xml));
    return former;
}

std::vector<Insertion> SheetSections::insertions(const std::string& newSheetData) const {
    std::vector<std::tuple<std::size_t, int, std::string>> found;
    const auto add = [&](std::string_view name, const std::string& xml) {
        found.emplace_back(placeOf(name), rankOfName(name), xml);
    };
    for (const auto& [name, xml] : replacements_) {
        if (!isHeld(name)) add(name, xml);
    }
    if (!newSheetData.empty()) add("sheetData", newSheetData);
    std::ranges::sort(found);
    std::vector<Insertion> insertions;
    insertions.reserve(found.size());
    for (auto& [place, rank, xml] : found)
        insertions.push_back({place, std::move(xml)});
    return insertions;
}

std::size_t SheetSections::placeOf(std::string_view name) const {
    const int rank = rankOfName(name);
    std::size_t place = index_.rootTag.end;
    for (const RootChild& child : index_.children) {
        const int childRank = rankOf(child);
        if (childRank != kUnknownRank && childRank <= rank) place = child.range.end;
    }
    return place;
}

bool SheetSections::isHeld(std::string_view name) const {
    return std::ranges::find(index_.children, name, &RootChild::name) != index_.children.end();
}

int SheetSections::rankOf(const RootChild& child) const {
    if (localNameOf(child.name) != "AlternateContent") return rankOfName(child.name);
    // It stands where the element has its place that it offers alternatives for.
    XmlScanner scanner(child.range.of(xml_));
    while (scanner.next()) {
        if (prefixOf(scanner.name()) != index_.prefix) continue;
        const int rank = rankOfName(localNameOf(scanner.name()));
        if (rank != kUnknownRank) return rank;
    }
    return kUnknownRank;
}

}  // namespace mergeloom::embedded
