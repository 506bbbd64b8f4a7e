#include "office/com/excel/ComExcelModel.h"

#include "base/AutomationError.h"

#include <algorithm>

namespace mergeloom::com {

namespace {

/// The number of areas that a drop uses: a cell, its neighbors and their merged areas.
constexpr std::size_t kUsedAreas = 8;

bool isSame(const AutomationObject& a, const AutomationObject& b) {
    return a.reference() == b.reference();
}

}  // namespace

AutomationObject ComExcelModel::rangeOf(const SheetArea& area) {
    return use(area).range;
}

excel::CellArea ComExcelModel::mergeAreaOf(const AutomationObject& sheet, const excel::CellPosition& cell) {
    UsedArea& used = use({sheet, {cell, cell}});
    if (!used.merged) used.merged = areaOf(used.range.object("Range", "MergeArea"));
    return *used.merged;
}

void ComExcelModel::activate(const AutomationObject& sheet) {
    if (active_ && isSame(active_->sheet, sheet)) return;
    forgetActiveCell();
    sheet.call("Activate");
}

std::optional<SheetArea> ComExcelModel::activeCell() {
    if (!active_) return {};
    // Of merged cells, the first one is active.
    const excel::CellPosition cell = mergeAreaOf(active_->sheet, active_->area.first).first;
    return SheetArea{active_->sheet, {cell, cell}};
}

void ComExcelModel::forget() {
    used_.clear();
    forgetActiveCell();
}

ComExcelModel::UsedArea& ComExcelModel::use(const SheetArea& area) {
    const auto known = std::ranges::find_if(used_, [&](const UsedArea& used) {
        return used.place.area == area.area && isSame(used.place.sheet, area.sheet);
    });
    if (known != used_.end()) {
        std::rotate(used_.begin(), known, known + 1);
        return used_.front();
    }
    const std::string address = absoluteAddressOf(area.area);
    used_.push_front({area, area.sheet.object("Range", "Range", {{"Cell1", address}})});
    if (used_.size() > kUsedAreas) used_.pop_back();
    return used_.front();
}

excel::CellArea areaOf(const AutomationObject& range) {
    const std::string address = range.get("Address").text();
    if (const std::optional<excel::CellArea> area = excel::parseArea(address)) return *area;
    throw AutomationError(kApplicationDefined, "'" + address + "' is no single area of cells.");
}

}  // namespace mergeloom::com
