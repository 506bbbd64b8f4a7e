#include "office/embedded/sheet/MergedCells.h"

#include "office/embedded/sheet/TreeEdit.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace mergeloom::embedded {

namespace {

using AreaMap = std::map<excel::CellPosition, excel::CellArea>;

excel::CellPosition transposed(const excel::CellPosition& cell) {
    return {cell.column, cell.row};
}

excel::CellArea transposed(const excel::CellArea& area) {
    return {transposed(area.first), transposed(area.last)};
}

bool isTall(const excel::CellArea& area) {
    return area.rows() > area.columns();
}

void listRows(AreaMap& areas, const excel::CellArea& area) {
    for (int row = area.first.row; row <= area.last.row; ++row)
        areas.emplace(excel::CellPosition{row, area.first.column}, area);
}

/// Returns the area with the nearest entry at or before the cell.
const excel::CellArea* nearest(const AreaMap& areas, const excel::CellPosition& cell) {
    const auto next = areas.upper_bound(cell);
    return next == areas.begin() ? nullptr : &std::prev(next)->second;
}

bool hasRowIn(const AreaMap& areas, const excel::CellArea& area) {
    if (areas.empty()) return false;
    for (int row = area.first.row; row <= area.last.row; ++row) {
        const excel::CellArea* const found = nearest(areas, {row, area.last.column});
        if (found != nullptr && intersection(*found, area)) return true;
    }
    return false;
}

}  // namespace

MergedCells::MergedCells(const SheetPart& sheet) {
    const SheetSection section(sheet, "mergeCells");
    for (const pugi::xml_node node : childrenNamed(section.root(), "mergeCell")) {
        const std::optional<excel::CellArea> area = excel::parseArea(node.attribute("ref").value());
        if (area && area->first != area->last && !touches(*area)) list(*area);
    }
}

void MergedCells::list(const excel::CellArea& area) {
    areas_.push_back(area);
    if (isTall(area)) {
        listRows(byColumns_, transposed(area));
    } else {
        listRows(byRows_, area);
    }
}

excel::CellArea MergedCells::areaAt(const excel::CellPosition& cell) const {
    const excel::CellArea* const wide = nearest(byRows_, cell);
    if (wide != nullptr && wide->contains(cell)) return *wide;
    const excel::CellArea* const tall = nearest(byColumns_, transposed(cell));
    if (tall != nullptr && tall->contains(transposed(cell))) return transposed(*tall);
    return {cell, cell};
}

bool MergedCells::touches(const excel::CellArea& area) const {
    // For a very large area it is faster to test each merged area.
    if (areas_.size() < static_cast<std::size_t>(area.rows()) + static_cast<std::size_t>(area.columns())) {
        return std::ranges::any_of(
            areas_, [&](const excel::CellArea& one) { return intersection(one, area).has_value(); });
    }
    return hasRowIn(byRows_, area) || hasRowIn(byColumns_, transposed(area));
}

}  // namespace mergeloom::embedded
