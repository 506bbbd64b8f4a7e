#pragma once

#include "office/embedded/sheet/SheetPart.h"

#include <map>
#include <vector>

namespace mergeloom::embedded {

/// The merged cells of a sheet (ECMA-376 Part 1, 18.3.1.55). A merged area that overlaps an earlier one,
/// which Excel would take for damage, does not count.
class MergedCells {
  public:
    explicit MergedCells(const SheetPart& sheet);

    /// The merged area that holds the cell; the cell alone when it is not merged.
    [[nodiscard]] excel::CellArea areaAt(const excel::CellPosition& cell) const;
    /// Whether any merged area shares a cell with the area.
    [[nodiscard]] bool touches(const excel::CellArea& area) const;
    /// Whether the cell is hidden behind the first cell of its area.
    [[nodiscard]] bool isCovered(const excel::CellPosition& cell) const { return areaAt(cell).first != cell; }

  private:
    void list(const excel::CellArea& area);

    std::vector<excel::CellArea> areas_;
    // An area is listed by the first cell of each of its rows, or of each of its columns when it is tall:
    // merged areas do not overlap, so the nearest entry at or before a cell is the only one that can hold it.
    std::map<excel::CellPosition, excel::CellArea> byRows_;
    std::map<excel::CellPosition, excel::CellArea>
        byColumns_;  ///< rows and columns stand in each other's place
};

}  // namespace mergeloom::embedded
