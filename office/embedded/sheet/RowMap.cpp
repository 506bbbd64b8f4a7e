#include "office/embedded/sheet/RowMap.h"

#include <algorithm>

namespace mergeloom::embedded {

bool RepeatedRows::touchesColumnsOf(const excel::CellArea& area) const {
    return area.first.column <= lastColumn && area.last.column >= firstColumn;
}

bool RepeatedRows::isCoveredBy(const excel::CellArea& area) const {
    return area.first.row <= first && area.last.row >= last && touchesColumnsOf(area);
}

bool RepeatedRows::isCutBy(const excel::CellArea& area) const {
    const bool touches = area.first.row <= last && area.last.row >= first && touchesColumnsOf(area);
    return touches && !isCoveredBy(area);
}

void RowMap::widen(std::size_t group, int firstColumn, int lastColumn) {
    RepeatedRows& rows = groups_.at(group);
    rows.firstColumn = std::min(rows.firstColumn, firstColumn);
    rows.lastColumn = std::max(rows.lastColumn, lastColumn);
}

std::optional<std::size_t> RowMap::groupAt(int row) const {
    for (std::size_t group = 0; group < groups_.size(); ++group) {
        if (row >= groups_[group].first && row <= groups_[group].end) return group;
    }
    return {};
}

int RowMap::row(int row) const {
    int moved = row;
    for (const RepeatedRows& rows : groups_) {
        if (row <= rows.last) break;
        if (rows.isEarlier(row)) return moved - (row - rows.last);
        moved += rows.height() * rows.copies - (rows.end - rows.first + 1);
    }
    return moved;
}

int RowMap::lastRowOf(std::size_t group) const {
    const RepeatedRows& rows = groups_[group];
    return row(rows.last) + rows.height() * (rows.copies - 1);
}

int RowMap::lastRow(const excel::CellArea& area) const {
    // Whole columns stay whole.
    if (area.last.row == excel::kLastRow) return area.last.row;
    const std::optional<std::size_t> group = groupAt(area.last.row);
    if (group && groups_[*group].isCoveredBy(area)) return lastRowOf(*group);
    return std::min(row(area.last.row), excel::kLastRow);
}

std::optional<excel::CellArea> RowMap::area(const excel::CellArea& area) const {
    excel::CellArea moved = area;
    const std::optional<std::size_t> group = groupAt(area.first.row);
    if (group && groups_[*group].isEarlier(area.first.row)) {
        if (area.last.row <= groups_[*group].end) return {};
        moved.first.row = lastRowOf(*group) + 1;
    } else {
        moved.first.row = row(area.first.row);
    }
    moved.last.row = lastRow(area);
    if (moved.first.row > excel::kLastRow) return {};
    return moved;
}

excel::CellArea RowMap::areaInCopy(const excel::CellArea& area, std::size_t group, int copy) const {
    const int offset = groups_[group].height() * copy;
    return {{row(area.first.row) + offset, area.first.column},
            {row(area.last.row) + offset, area.last.column}};
}

}  // namespace mergeloom::embedded
