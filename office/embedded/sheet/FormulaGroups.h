#pragma once

#include "office/model/excel/CellAddress.h"

#include <optional>
#include <set>
#include <utility>

namespace mergeloom::embedded {

/// Which cells hold the text of the shared formulas of a sheet (ECMA-376 Part 1, 18.3.1.40, si).
class FormulaGroups {
  public:
    void add(int group, const excel::CellPosition& master) { masters_.emplace(group, master); }
    void remove(int group, const excel::CellPosition& master) { masters_.erase({group, master}); }

    /// The master that a cell of the group goes by: the last one before it, where a number is used twice.
    [[nodiscard]] std::optional<excel::CellPosition> masterOf(int group,
                                                              const excel::CellPosition& cell) const;

  private:
    std::set<std::pair<int, excel::CellPosition>> masters_;
};

}  // namespace mergeloom::embedded
