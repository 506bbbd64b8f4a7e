#include "office/embedded/sheet/FormulaHandover.h"

#include "office/embedded/sheet/CellXml.h"
#include "office/embedded/sheet/SharedFormula.h"
#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlScanner.h"
#include "office/embedded/sheet/XmlText.h"

#include <utility>

namespace mergeloom::embedded {

namespace {

/// A cell's part in a shared formula.
struct Membership {
    int group = 0;
    std::optional<excel::CellArea> area{};  ///< a master's
};

std::optional<Membership> membershipOf(const CellXml& cell) {
    if (findAttribute(cell.formulaAttributes, "t") != "shared") return {};
    Membership membership{findNumber(cell.formulaAttributes, "si").value_or(0)};
    if (const auto area = findAttribute(cell.formulaAttributes, "ref"))
        membership.area = excel::parseArea(*area);
    return membership;
}

std::string_view formulaTag(const CellXml& cell) {
    return cell.formula.substr(0, cell.formula.find('>', cell.formulaAttributes.size()) + 1);
}

/// What remains of a group's area from a cell on.
excel::CellArea areaFrom(const excel::CellPosition& cell, const excel::CellArea& area) {
    const int firstColumn = cell.row == area.last.row ? cell.column : area.first.column;
    return {{cell.row, firstColumn}, area.last};
}

std::string masterFormula(const CellXml& cell, const excel::CellArea& area, const std::string& text) {
    XmlTag tag(formulaTag(cell));
    tag.set("ref", addressOf(area));
    return tag.startTag() + escapeXml(text) + tag.endTag();
}

std::string ownFormula(const CellXml& cell, const std::string& text) {
    XmlTag tag(formulaTag(cell));
    tag.remove("t");
    tag.remove("si");
    return tag.startTag() + escapeXml(text) + tag.endTag();
}

ShiftedFormula shiftedTo(const excel::CellPosition& to, const excel::CellPosition& from,
                         const std::string& formula) {
    return shiftFormula(formula, to.row - from.row, to.column - from.column);
}

}  // namespace

std::optional<FormulaHandover> planHandover(const SheetState& sheet, const excel::CellPosition& cell) {
    const std::string& prefix = sheet.index.prefix;
    const std::string masterXml = sheet.cells.current(cell);
    const CellXml master = splitCell(masterXml, prefix);
    const std::optional<Membership> group = membershipOf(master);
    if (!group || !group->area) return {};
    FormulaHandover plan{group->group};
    const std::string text = decodeXml(master.formulaText);
    sheet.cells.forEachIn(*group->area, [&](const excel::CellPosition& heir, std::string_view xml) {
        const CellXml parts = splitCell(xml, prefix);
        const std::optional<Membership> membership = membershipOf(parts);
        if (heir == cell || !membership || membership->group != group->group) return true;
        if (membership->area) return false;
        const ShiftedFormula shifted = shiftedTo(heir, cell, text);
        plan.hasNewMaster = !shifted.leftSheet;
        plan.heirs.push_back({heir, plan.hasNewMaster
                                        ? masterFormula(parts, areaFrom(heir, *group->area), shifted.text)
                                        : ownFormula(parts, shifted.text)});
        return !plan.hasNewMaster;
    });
    return plan;
}

std::string formulaOf(const SheetState& sheet, const excel::CellPosition& cell, std::string_view cellXml) {
    const std::string& prefix = sheet.index.prefix;
    const CellXml parts = splitCell(cellXml, prefix);
    const std::optional<Membership> membership = membershipOf(parts);
    const std::string own = decodeXml(parts.formulaText);
    if (!membership || membership->area) return decodeXstring(own);
    const std::optional<excel::CellPosition> master =
        sheet.index.formulaGroups.masterOf(membership->group, cell);
    if (!master) return decodeXstring(own);
    const std::string masterXml = sheet.cells.current(*master);
    const std::string text = decodeXml(splitCell(masterXml, prefix).formulaText);
    return decodeXstring(shiftedTo(cell, *master, text).text);
}

}  // namespace mergeloom::embedded
