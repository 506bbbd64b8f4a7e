#pragma once

#include "office/embedded/sheet/CellEdits.h"
#include "office/embedded/sheet/SheetIndex.h"

#include <functional>
#include <string>
#include <string_view>

namespace mergeloom::embedded {

/// The XML of single cells, with and without what was changed in them.
class SheetCells {
  public:
    /// All must outlive this.
    SheetCells(std::string_view xml, const SheetIndex& index, const CellEdits& edits);

    /// As the part was read; empty when it does not hold the cell. Costs the length of the row.
    [[nodiscard]] std::string_view stored(const excel::CellPosition& cell) const;
    /// As it is written now; empty when there is no such cell.
    [[nodiscard]] std::string current(const excel::CellPosition& cell) const;
    /// As it is written with an edit; stored is empty for a new cell.
    [[nodiscard]] std::string edited(std::string_view stored, const excel::CellPosition& cell,
                                     const CellEdit& edit) const;

    using Visit = std::function<bool(const excel::CellPosition& cell, std::string_view xml)>;
    /// The stored cells of an area in order, as they are written now, until a visit answers false.
    void forEachIn(const excel::CellArea& area, const Visit& visit) const;
    /// The start tag of a row as it was read; empty when the part does not hold the row.
    [[nodiscard]] std::string_view rowTag(int row) const;

  private:
    std::string_view xml_;
    const SheetIndex& index_;
    const CellEdits& edits_;
};

}  // namespace mergeloom::embedded
