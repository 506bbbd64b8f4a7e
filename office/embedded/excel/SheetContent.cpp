#include "office/embedded/excel/SheetContent.h"

#include "office/opc/XmlPart.h"

#include <algorithm>

namespace mergeloom::embedded {

namespace {

/// Returns the areas of the sheet's pivot tables (ECMA-376 Part 1, 18.10.1.49).
std::vector<excel::CellArea> pivotTablesOf(opc::Package& package, const std::string& sheetPart) {
    std::vector<excel::CellArea> areas;
    const opc::Relationships& relationships = package.relationshipsOf(sheetPart);
    for (const opc::Relationship* relationship : relationships.ofOfficeType("pivotTable")) {
        const std::string partName = relationships.targetPart(*relationship);
        if (!package.hasPart(partName)) continue;
        const auto part = opc::XmlPart::parse(package.readPart(partName), partName, package.fileName());
        for (const pugi::xml_node child : part->root().children()) {
            const auto area = excel::parseArea(child.attribute("ref").value());
            if (std::string_view(child.name()).ends_with("location") && area) areas.push_back(*area);
        }
    }
    return areas;
}

}  // namespace

SheetContent::SheetContent(const SheetEntry& entry, const SheetDependencies& dependencies)
    : entry_(entry),
      package_(dependencies.package),
      undo_(dependencies.undo),
      part_(package_.readPart(entry.partName), entry.partName, package_.fileName(), undo_),
      merged_(part_),
      protection_(readProtection(part_)),
      geometry_(part_, dependencies.styles, undo_),
      drawing_(package_, part_, geometry_, dependencies.pictures, undo_),
      tables_(package_, entry.partName, undo_),
      pivotTables_(pivotTablesOf(package_, entry.partName)),
      selection_(readSelection(part_)) {}

bool SheetContent::isInPivotTable(const excel::CellPosition& cell) const {
    return std::ranges::any_of(pivotTables_,
                               [&](const excel::CellArea& area) { return area.contains(cell); });
}

void SheetContent::select(const excel::CellSelection& selection) {
    if (selection_ == selection) return;
    if (undo_.isRecording()) undo_.record([this, former = selection_] { selection_ = former; });
    selection_ = selection;
}

void SheetContent::store() {
    tables_.store();
    drawing_.store();
    geometry_.store();
    writeSelection(part_, selection_);
    // A part that was stored before is stored again, since its changes may have been undone.
    if (!part_.isDirty() && !stored_) return;
    package_.writePart(entry_.partName, part_.toXml());
    stored_ = true;
}

}  // namespace mergeloom::embedded
