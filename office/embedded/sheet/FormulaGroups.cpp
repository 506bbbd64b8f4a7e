#include "office/embedded/sheet/FormulaGroups.h"

#include <iterator>

namespace mergeloom::embedded {

std::optional<excel::CellPosition> FormulaGroups::masterOf(int group, const excel::CellPosition& cell) const {
    const auto behind = masters_.upper_bound({group, cell});
    if (behind != masters_.begin() && std::prev(behind)->first == group) return std::prev(behind)->second;
    if (behind != masters_.end() && behind->first == group) return behind->second;
    return {};
}

}  // namespace mergeloom::embedded
