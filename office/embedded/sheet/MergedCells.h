#pragma once

#include "office/embedded/sheet/SheetPart.h"

#include <map>
#include <vector>

namespace mergeloom::embedded {

/// The merged cells of a sheet (ECMA-376 Part 1, 18.3.1.55). A merged area that overlaps an earlier one,
/// which Excel would report as damage, is ignored.
class MergedCells {
  public:
    explicit MergedCells(const SheetPart& sheet);

    /// Returns the merged area that contains the cell; the cell alone if it is not merged.
    [[nodiscard]] excel::CellArea areaAt(const excel::CellPosition& cell) const;
    /// Returns true if any merged area intersects the area.
    [[nodiscard]] bool touches(const excel::CellArea& area) const;
    /// Returns true if the first cell of its merged area covers the cell.
    [[nodiscard]] bool isCovered(const excel::CellPosition& cell) const { return areaAt(cell).first != cell; }

  private:
    void list(const excel::CellArea& area);

    std::vector<excel::CellArea> areas_;
    // An area is listed by the first cell of each of its rows, or of each of its columns when it is tall:
    // merged areas do not overlap, so only the nearest entry at or before a cell can contain it.
    std::map<excel::CellPosition, excel::CellArea> byRows_;
    std::map<excel::CellPosition, excel::CellArea> byColumns_;  ///< rows and columns are swapped
};

}  // namespace mergeloom::embedded
