#include "office/embedded/sheet/CellEdits.h"

#include <utility>

namespace mergeloom::embedded {

const CellEdit* CellEdits::find(const excel::CellPosition& cell) const {
    const auto row = rows_.find(cell.row);
    if (row == rows_.end()) return nullptr;
    const auto found = row->second.cells.find(cell.column);
    return found == row->second.cells.end() ? nullptr : &found->second;
}

std::optional<CellEdit> CellEdits::exchange(const excel::CellPosition& cell, std::optional<CellEdit> edit) {
    std::map<int, CellEdit>& cells = rows_[cell.row].cells;
    std::optional<CellEdit> former;
    if (const auto found = cells.find(cell.column); found != cells.end()) {
        former = std::move(found->second);
        cells.erase(found);
    }
    if (edit) cells.emplace(cell.column, *std::move(edit));
    dropIfEmpty(cell.row);
    return former;
}

std::optional<double> CellEdits::exchangeHeight(int row, std::optional<double> height) {
    std::optional<double> former = std::exchange(rows_[row].height, height);
    dropIfEmpty(row);
    return former;
}

void CellEdits::dropIfEmpty(int row) {
    const auto found = rows_.find(row);
    if (found->second.cells.empty() && !found->second.height) rows_.erase(found);
}

}  // namespace mergeloom::embedded
