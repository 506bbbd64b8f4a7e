#pragma once

#include "office/model/excel/CellAddress.h"

#include <optional>
#include <vector>

namespace mergeloom::embedded {

/// Areas of cells that do not overlap, found by a cell without a walk over all of them.
class AreaIndex {
  public:
    AreaIndex() = default;
    explicit AreaIndex(std::vector<excel::CellArea> areas);

    /// The area that holds the cell.
    [[nodiscard]] std::optional<excel::CellArea> find(const excel::CellPosition& cell) const;

  private:
    std::vector<excel::CellArea> areas_;  // by their first row
    std::vector<int> reach_;              // the last row that the areas up to each one reach
};

}  // namespace mergeloom::embedded
