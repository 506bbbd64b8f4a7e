#include "office/embedded/sheet/SheetList.h"

#include "office/embedded/package/PartName.h"
#include "office/embedded/package/UnreadableFile.h"
#include "office/embedded/sheet/TreeEdit.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

namespace mergeloom::embedded {

namespace {

SheetKind kindOf(std::string_view relationshipType) {
    const std::string_view shortName = officeShortName(relationshipType);
    if (shortName == "worksheet") return SheetKind::Worksheet;
    return shortName == "chartsheet" ? SheetKind::ChartSheet : SheetKind::Other;
}

bool isHidden(pugi::xml_node node) {
    const std::string_view state = node.attribute("state").value();
    return state == "hidden" || state == "veryHidden";
}

SheetEntry readSheet(pugi::xml_node node, Package& package, const Relationships& relationships) {
    const std::string name = node.attribute("name").value();
    const Relationship* const found = relationships.find(relationshipId(node));
    const bool isInside = found != nullptr && found->mode == TargetMode::Internal;
    std::string partName = isInside ? relationships.targetPart(*found) : "";
    if (!isInside || !package.hasPart(partName)) {
        raiseUnreadable(package.fileName(), "the part of its sheet " + quoted(name) + " is missing");
    }
    return {name, std::move(partName), node.attribute("sheetId").as_int(), kindOf(found->type),
            isHidden(node)};
}

}  // namespace

std::vector<SheetEntry> readSheets(pugi::xml_node workbook, const std::string& partName, Package& package) {
    std::vector<SheetEntry> sheets;
    std::unordered_set<std::string> parts;
    const Relationships& relationships = package.relationshipsOf(partName);
    const pugi::xml_node list = childNamed(workbook, "sheets");
    for (const pugi::xml_node node : childrenNamed(list, "sheet")) {
        sheets.push_back(readSheet(node, package, relationships));
        // Each sheet is edited and written on its own, so one of the two would be lost.
        if (!parts.insert(partKey(sheets.back().partName)).second) {
            raiseUnreadable(package.fileName(),
                            "its sheet " + quoted(sheets.back().name) + " is also another one of its sheets");
        }
    }
    if (std::ranges::all_of(sheets, &SheetEntry::hidden)) {
        raiseUnreadable(package.fileName(), "it is a workbook without a visible sheet");
    }
    return sheets;
}

}  // namespace mergeloom::embedded
