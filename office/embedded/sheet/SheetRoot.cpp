#include "office/embedded/sheet/SheetRoot.h"

#include "base/Text.h"
#include "office/embedded/sheet/XmlScanner.h"
#include "office/embedded/sheet/XmlText.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kTransitionalSheet = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
constexpr std::string_view kStrictSheet = "http://purl.oclc.org/ooxml/spreadsheetml/main";
constexpr std::string_view kDeclaration = "xmlns:";

std::string declarationOf(std::string_view prefix) {
    return std::string(kDeclaration).append(prefix);
}

std::string ownNamespace(const XmlTag& tag) {
    const std::string_view prefix = tag.prefix();
    const std::string attribute =
        prefix.empty() ? "xmlns" : declarationOf(prefix.substr(0, prefix.size() - 1));
    return decodeXml(findAttribute(tag.attributes(), attribute).value_or(""));
}

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

SheetRoot::SheetRoot(std::string_view tag) : tag_(tag) {
    const std::string uri = ownNamespace(tag_);
    isStrict_ = uri == kStrictSheet;
    if (!isStrict_ && uri != kTransitionalSheet) throw BadXml("is no worksheet");
}

std::string SheetRoot::prefixFor(std::string_view uri) const {
    XmlAttributes attribute(tag_.attributes());
    while (attribute.next()) {
        if (!attribute.name().starts_with(kDeclaration) || decodeXml(attribute.value()) != uri) continue;
        return std::string(attribute.name().substr(kDeclaration.size()));
    }
    return {};
}

std::string SheetRoot::freePrefix(std::string_view preferred) const {
    std::string prefix(preferred);
    for (int number = 1; findAttribute(tag_.attributes(), declarationOf(prefix)); ++number)
        prefix = std::string(preferred) + std::to_string(number);
    return prefix;
}

void SheetRoot::declare(const std::string& prefix, const std::string& uri) {
    tag_.set(declarationOf(prefix), replaceAll(escapeXml(uri), "\"", "&quot;"));
    ++declared_;
}

void SheetRoot::undoDeclaration(const std::string& prefix) {
    tag_.remove(declarationOf(prefix));
    --declared_;
}

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
        if (!isPresent(name)) add(name, xml);
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

bool SheetSections::isPresent(std::string_view name) const {
    return std::ranges::find(index_.children, name, &RootChild::name) != index_.children.end();
}

int SheetSections::rankOf(const RootChild& child) const {
    if (localNameOf(child.name) != "AlternateContent") return rankOfName(child.name);
    // Its place is that of the element for which it contains alternatives.
    XmlScanner scanner(child.range.of(xml_));
    while (scanner.next()) {
        if (prefixOf(scanner.name()) != index_.prefix) continue;
        const int rank = rankOfName(localNameOf(scanner.name()));
        if (rank != kUnknownRank) return rank;
    }
    return kUnknownRank;
}

}  // namespace mergeloom::embedded
