#include "office/embedded/sheet/SheetList.h"

#include "office/embedded/sheet/TreeEdit.h"
#include "office/opc/PartName.h"
#include "office/opc/UnreadableFile.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

namespace mergeloom::embedded {

namespace {

SheetKind kindOf(std::string_view relationshipType) {
    const std::string_view shortName = opc::officeShortName(relationshipType);
    if (shortName == "worksheet") return SheetKind::Worksheet;
    return shortName == "chartsheet" ? SheetKind::ChartSheet : SheetKind::Other;
}

bool isHidden(pugi::xml_node node) {
    const std::string_view state = node.attribute("state").value();
    return state == "hidden" || state == "veryHidden";
}

SheetEntry readSheet(pugi::xml_node node, opc::Package& package, const opc::Relationships& relationships) {
    const std::string name = node.attribute("name").value();
    const opc::Relationship* const found = relationships.find(relationshipId(node));
    const bool isInside = found != nullptr && found->mode == opc::TargetMode::Internal;
    std::string partName = isInside ? relationships.targetPart(*found) : "";
    if (!isInside || !package.hasPart(partName)) {
        opc::raiseUnreadable(package.fileName(),
                             "the part of its sheet " + opc::quoted(name) + " is missing");
    }
    return {name, std::move(partName), node.attribute("sheetId").as_int(), kindOf(found->type),
            isHidden(node)};
}

}  // namespace

std::vector<SheetEntry> readSheets(pugi::xml_node workbook, const std::string& partName,
                                   opc::Package& package) {
    std::vector<SheetEntry> sheets;
    std::unordered_set<std::string> parts;
    const opc::Relationships& relationships = package.relationshipsOf(partName);
    const pugi::xml_node list = childNamed(workbook, "sheets");
    for (const pugi::xml_node node : childrenNamed(list, "sheet")) {
        sheets.push_back(readSheet(node, package, relationships));
        // Each sheet is edited and written on its own, so one of the two would be lost.
        if (!parts.insert(opc::partKey(sheets.back().partName)).second) {
            opc::raiseUnreadable(package.fileName(), "its sheet " + opc::quoted(sheets.back().name) +
                                                         " is also another one of its sheets");
        }
    }
    if (std::ranges::all_of(sheets, &SheetEntry::hidden)) {
        opc::raiseUnreadable(package.fileName(), "it is a workbook without a visible sheet");
    }
    return sheets;
}

}  // namespace mergeloom::embedded
