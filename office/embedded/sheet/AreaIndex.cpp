#include "office/embedded/sheet/AreaIndex.h"

#include <algorithm>
#include <utility>

namespace mergeloom::embedded {

namespace {

int firstRowOf(const excel::CellArea& area) {
    return area.first.row;
}

}  // namespace

AreaIndex::AreaIndex(std::vector<excel::CellArea> areas) : areas_(std::move(areas)) {
    std::ranges::stable_sort(areas_, {}, firstRowOf);
    reach_.reserve(areas_.size());
    int reach = 0;
    for (const excel::CellArea& area : areas_)
        reach_.push_back(reach = std::max(reach, area.last.row));
}

std::optional<excel::CellArea> AreaIndex::find(const excel::CellPosition& cell) const {
    const auto behind = std::ranges::upper_bound(areas_, cell.row, {}, firstRowOf);
    for (auto index = static_cast<std::size_t>(behind - areas_.begin()); index > 0; --index) {
        if (reach_[index - 1] < cell.row) return {};
        if (areas_[index - 1].contains(cell)) return areas_[index - 1];
    }
    return {};
}

}  // namespace mergeloom::embedded
