#include "office/graft/BookRules.h"

#include "office/graft/ExportDifference.h"
#include "office/opc/XmlPart.h"

#include <algorithm>
#include <array>
#include <functional>

namespace mergeloom::graft {

namespace {

/// Content that is ignored: ids that LibreOffice generates for each export, copies of cells' values in
/// charts, dates, and sizes that it measures. Places are compared with a tolerance (ObjectPlace.h).
constexpr std::array kVolatileNames{
    VolatileName{"c:axId", "val"},
    VolatileName{"c:crossAx", "val"},
    VolatileName{"c:numCache", ""},
    VolatileName{"c:strCache", ""},
    VolatileName{"c:multiLvlStrCache", ""},
    VolatileName{"xdr:cNvPr", "id"},
    VolatileName{"xdr:cNvPr", "name"},
    VolatileName{"x14:cfRule", "id"},
    VolatileName{"x14:id", ""},
    VolatileName{"*", "xr2:uid"},
    VolatileName{"v:*", "id"},
    VolatileName{"v:*", "type"},
    VolatileName{"*", "o:spid"},
    VolatileName{"tableColumn", "name"},
    VolatileName{"sheetFormatPr", "defaultRowHeight"},
    VolatileName{"sheetFormatPr", "defaultColWidth"},
    VolatileName{"sheetFormatPr", "outlineLevelRow"},
    VolatileName{"sheetFormatPr", "outlineLevelCol"},
    VolatileName{"pivotCacheDefinition", "refreshedDate"},
    VolatileName{"dcterms:created", ""},
    VolatileName{"dcterms:modified", ""},
    VolatileName{"cp:lastModifiedBy", ""},
    VolatileName{"cp:revision", ""},
    VolatileName{"cp:lastPrinted", ""},
    VolatileName{"xdr:from", ""},
    VolatileName{"xdr:to", ""},
    VolatileName{"from", ""},
    VolatileName{"to", ""},
    VolatileName{"a:off", ""},
    VolatileName{"a:ext", "cx"},
    VolatileName{"a:ext", "cy"},
    VolatileName{"xdr:ext", ""},
    VolatileName{"v:shape", "style"},
    VolatileName{"x:Anchor", ""},
};

struct SectionReason {
    std::string_view section;
    std::string_view reason;
};

constexpr SectionReason kReasons[] = {
    {"view", "the frozen panes or what the sheet shows was changed"},
    {"sheetPr", "the sheet's properties were changed"},
    {"sheetFormatPr", "the sheet's default sizes were changed"},
    {"sheetProtection", "the sheet's protection was changed"},
    {"autoFilter", "a filter was changed"},
    {"conditionalFormatting", "a conditional format was changed"},
    {"dataValidations", "a validity rule was changed"},
    {"printOptions", "the page's settings were changed"},
    {"pageMargins", "the page's margins were changed"},
    {"pageSetup", "the page's settings were changed"},
    {"headerFooter", "the page's header or footer was changed"},
    {"rowBreaks", "a page break was changed"},
    {"colBreaks", "a page break was changed"},
    {"comments", "a comment was changed"},
    {"vmlDrawing", "a comment's box or a control was changed"},
    {"table", "a table was changed"},
    {"pivotTable", "a pivot table was changed"},
    {"pivotCaches", "a pivot table was changed"},
    {"workbookProtection", "the workbook's protection was changed"},
    {"workbookPr", "the workbook's settings were changed"},
    {"calcPr", "the settings of calculations were changed"},
    {"vbaProject", "a macro was changed"},
    {"externalReferences", "a link to another workbook was changed"},
};

std::string digestText(opc::Package& package, const std::string& partName) {
    const opc::PartDigest digest = package.digestOfPart(partName);
    return std::to_string(digest.size) + ":" + std::to_string(digest.crc);
}

}  // namespace

const CanonicalRules& bookRules() {
    static constexpr CanonicalRules kRules{kVolatileNames, {}};
    return kRules;
}

TargetText contentsOf(opc::Package& package, const std::string& partName, const CanonicalRules& rules) {
    return [&package, partName, rules](std::string_view id) -> std::string {
        const opc::Relationships& relationships = package.relationshipsOf(partName);
        const opc::Relationship* const found = relationships.find(id);
        if (found == nullptr) return std::string(id);
        if (found->mode == opc::TargetMode::External) return found->target;
        return contentOf(package, relationships.targetPart(*found), rules);
    };
}

std::string contentOf(opc::Package& package, const std::string& partName, const CanonicalRules& rules) {
    // Embedded packages differ in every export.
    if (!package.hasPart(partName) || partName.find("/embeddings/") != std::string::npos) return {};
    if (!isXml(partName)) return digestText(package, partName);
    const auto part = opc::XmlPart::parse(package.readPart(partName), partName, package.fileName());
    return CanonicalXml(rules, contentsOf(package, partName, rules)).of(part->root());
}

std::string sectionOfType(std::string_view relationshipType) {
    return std::string(relationshipType.substr(relationshipType.rfind('/') + 1));
}

std::string reasonForSection(std::string_view section) {
    const auto* const found = std::ranges::find(kReasons, section, &SectionReason::section);
    if (found != std::end(kReasons)) return std::string(found->reason);
    if (section.starts_with("/docProps/")) return "the document's properties were changed";
    return "the sheet's " + std::string(section) + " was changed";
}

}  // namespace mergeloom::graft
