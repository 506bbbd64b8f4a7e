#pragma once

#include "office/embedded/sheet/SheetPart.h"

#include <map>
#include <vector>

namespace mergeloom::embedded {

/// The merged cells of a sheet (ECMA-376 Part 1, 18.3.1.55).
class MergedCells {
  public:
    explicit MergedCells(const SheetPart& sheet);

    /// The merged area that holds the cell; the cell alone when it is not merged.
    [[nodiscard]] CellArea areaAt(const CellPosition& cell) const;
    /// Whether any merged area shares a cell with the area.
    [[nodiscard]] bool touches(const CellArea& area) const;
    /// Whether the cell is hidden behind the first cell of its area.
    [[nodiscard]] bool isCovered(const CellPosition& cell) const { return areaAt(cell).first != cell; }

  private:
    std::vector<CellArea> areas_;
    // whatever makes areaAt faster than a walk over tens of thousands of areas
};

}  // namespace mergeloom::embedded
