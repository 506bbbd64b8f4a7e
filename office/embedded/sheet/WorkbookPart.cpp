#include "office/embedded/sheet/WorkbookPart.h"

#include "base/AutomationError.h"
#include "base/Text.h"
#include "office/embedded/sheet/TreeEdit.h"
#include "office/opc/PartName.h"
#include "office/opc/UnreadableFile.h"
#include "office/opc/XmlPart.h"

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

constexpr const char* kCalculateOnLoad = "fullCalcOnLoad";

/// Returns the kind of a file by its main part's content type; an empty text for a workbook that can be read.
std::string_view foreignKind(const std::string& contentType) {
    const std::string type = toLowerAscii(contentType);
    const auto has = [&](std::string_view word) { return type.find(word) != std::string::npos; };
    if (has("ms-excel.sheet.binary")) {
        return "it is a binary workbook (.xlsb), which has to be saved as .xlsx or .xlsm first";
    }
    if (type.ends_with("main+xml") && (has("spreadsheetml") || has("ms-excel"))) return "";
    if (has("wordprocessingml") || has("ms-word")) return "it is a Word document and no workbook";
    if (has("presentationml") || has("ms-powerpoint")) return "it is a presentation and no workbook";
    return "it is no workbook";
}

std::string workbookXml(const opc::Package& package, const std::string& partName) {
    const std::string_view foreign = foreignKind(package.contentTypes().of(partName));
    if (!foreign.empty()) opc::raiseUnreadable(package.fileName(), std::string(foreign));
    if (package.isSigned()) {
        opc::raiseUnreadable(package.fileName(),
                             "it is digitally signed; a change would make the signature invalid");
    }
    return package.readPart(partName);
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
        // Each sheet is edited and written separately, so the changes of one of the two would be lost.
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

WorkbookPart::WorkbookPart(opc::Package& package, UndoLog& undo) : package_(package), state_(undo) {
    const std::string name = package.mainPart();
    part_ = opc::XmlPart::parse(workbookXml(package, name), name, package.fileName());
    if (opc::localName(part_->root()) != "workbook") {
        opc::raiseUnreadable(package.fileName(), "its part " + opc::quoted(name) + " has no root element " +
                                                     opc::quoted("workbook"));
    }
    sheets_ = readSheets(part_->root(), name, package);
    activeSheet_ = readActiveSheet();
    names_.emplace(*part_, state_, sheets_.size());
}

bool WorkbookPart::canBeActive(std::size_t index) const {
    return index < sheets_.size() && !sheets_[index].hidden;
}

std::size_t WorkbookPart::readActiveSheet() const {
    const std::size_t named = view().attribute("activeTab").as_uint();
    if (canBeActive(named)) return named;
    return static_cast<std::size_t>(std::ranges::find(sheets_, false, &SheetEntry::hidden) - sheets_.begin());
}

void WorkbookPart::setActiveSheet(std::size_t index) {
    if (!canBeActive(index)) {
        throw AutomationError(kApplicationDefined, "A sheet that is hidden or not there cannot be active.");
    }
    if (index == activeSheet()) return;
    setAttribute(ensureView(), "activeTab", std::to_string(index), state_);
    state_.change([this, former = activeSheet_] { activeSheet_ = former; });
    activeSheet_ = index;
}

pugi::xml_node WorkbookPart::view() const {
    return childNamed(childNamed(part_->root(), "bookViews"), "workbookView");
}

pugi::xml_node WorkbookPart::ensureView() {
    if (const pugi::xml_node known = view()) return known;
    pugi::xml_node root = part_->root();
    pugi::xml_node views = childNamed(root, "bookViews");
    if (!views) {
        views =
            root.insert_child_before(qualifiedName(root, "bookViews").c_str(), childNamed(root, "sheets"));
        recordInsertion(views, *part_, state_);
    }
    const pugi::xml_node added = views.prepend_child(qualifiedName(root, "workbookView").c_str());
    recordInsertion(added, *part_, state_);
    return added;
}

void WorkbookPart::calculateOnLoad() {
    const pugi::xml_node calculation = ensureCalculation();
    if (calculation.attribute(kCalculateOnLoad).as_bool()) return;
    setAttribute(calculation, kCalculateOnLoad, "1", state_);
}

pugi::xml_node WorkbookPart::ensureCalculation() {
    pugi::xml_node root = part_->root();
    if (const pugi::xml_node known = childNamed(root, "calcPr")) return known;
    pugi::xml_node before = childNamed(root, "sheets");
    for (const char* name : {"functionGroups", "externalReferences", "definedNames"}) {
        if (const pugi::xml_node later = childNamed(root, name)) before = later;
    }
    const pugi::xml_node added = root.insert_child_after(qualifiedName(root, "calcPr").c_str(), before);
    recordInsertion(added, *part_, state_);
    return added;
}

void WorkbookPart::store() {
    if (!isDirty()) return;
    package_.writePart(partName(), toXml());
    state_.setStored();
}

}  // namespace mergeloom::embedded
