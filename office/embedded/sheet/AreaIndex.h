#pragma once

#include "office/embedded/sheet/CellAddress.h"

#include <optional>
#include <vector>

namespace mergeloom::embedded {

/// Areas of cells that do not overlap, found by a cell without a walk over all of them.
class AreaIndex {
  public:
    AreaIndex() = default;
    explicit AreaIndex(std::vector<CellArea> areas);

    /// The area that holds the cell.
    [[nodiscard]] std::optional<CellArea> find(const CellPosition& cell) const;

  private:
    std::vector<CellArea> areas_;  // by their first row
    std::vector<int> reach_;       // the last row that the areas up to each one reach
};

}  // namespace mergeloom::embedded
