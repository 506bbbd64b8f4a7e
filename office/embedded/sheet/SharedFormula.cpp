#include "office/embedded/sheet/SharedFormula.h"

#include "office/embedded/sheet/CellXml.h"
#include "office/embedded/sheet/FormulaReader.h"
#include "office/embedded/sheet/XmlAttributes.h"
#include "office/embedded/sheet/XmlScanner.h"
#include "office/embedded/sheet/XmlText.h"
#include "office/model/excel/CellAddress.h"

#include <optional>
#include <utility>

namespace mergeloom::embedded {

namespace {

constexpr std::string_view kLostReference = "#REF!";

/// Copies a formula with its references moved.
class FormulaShifter {
  public:
    FormulaShifter(int rows, int columns) : rows_(rows), columns_(columns) {}

    ShiftedFormula shift(std::string_view formula) {
        for (FormulaReader reader(formula); reader.next();) {
            const FormulaReference* const reference = reader.reference();
            if (reference == nullptr) {
                result_.text += reader.text();
            } else if (reference->last) {
                appendArea(*reference);
            } else {
                append(moved(reference->first).value_or(std::string(kLostReference)));
            }
        }
        return std::move(result_);
    }

  private:
    void appendArea(const FormulaReference& area) {
        const std::optional<std::string> from = moved(area.first);
        const std::optional<std::string> to = moved(*area.last);
        append(from && to ? *from + ":" + *to : std::string(kLostReference));
    }

    void append(const std::string& reference) {
        result_.leftSheet |= reference == kLostReference;
        result_.text += reference;
    }

    /// Returns nothing if the moved corner is outside of the sheet.
    [[nodiscard]] std::optional<std::string> moved(Corner corner) const {
        const auto move = [](int& number, bool stays, int by, int last) {
            if (number == 0 || stays) return true;
            number += by;
            return number >= 1 && number <= last;
        };
        const bool isInSheet = move(corner.column, corner.columnStays, columns_, excel::kLastColumn) &&
                               move(corner.row, corner.rowStays, rows_, excel::kLastRow);
        if (!isInSheet) return {};
        return corner.text();
    }

    int rows_;
    int columns_;
    ShiftedFormula result_;
};

/// A cell's membership in a shared formula.
struct Membership {
    int group = 0;
    std::optional<excel::CellArea> area{};  ///< set for a master
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

/// Returns the part of a group's area from a cell on.
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

ShiftedFormula shiftFormula(std::string_view formula, int rows, int columns) {
    return FormulaShifter(rows, columns).shift(formula);
}

std::optional<SharedFormulaPromotion> planPromotion(const SheetState& sheet,
                                                    const excel::CellPosition& cell) {
    const std::string& prefix = sheet.index.prefix;
    const std::string masterXml = sheet.cells.current(cell);
    const CellXml master = splitCell(masterXml, prefix);
    const std::optional<Membership> group = membershipOf(master);
    if (!group || !group->area) return {};
    SharedFormulaPromotion plan{group->group};
    const std::string text = decodeXml(master.formulaText);
    sheet.cells.forEachIn(*group->area, [&](const excel::CellPosition& successor, std::string_view xml) {
        const CellXml parts = splitCell(xml, prefix);
        const std::optional<Membership> membership = membershipOf(parts);
        if (successor == cell || !membership || membership->group != group->group) return true;
        if (membership->area) return false;
        const ShiftedFormula shifted = shiftedTo(successor, cell, text);
        plan.hasNewMaster = !shifted.leftSheet;
        plan.successors.push_back(
            {successor, plan.hasNewMaster
                            ? masterFormula(parts, areaFrom(successor, *group->area), shifted.text)
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
