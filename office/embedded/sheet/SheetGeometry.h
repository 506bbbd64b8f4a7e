#pragma once

#include "base/Units.h"
#include "office/embedded/sheet/SheetPart.h"
#include "office/embedded/sheet/StyleSheet.h"

#include <memory>

namespace mergeloom::embedded {

/// A place on a sheet's drawing layer: a cell and the distance from its upper left corner.
struct SheetPlace {
    excel::CellPosition cell{};
    Emu right{};
    Emu down{};
};

/// Where the cells of a sheet lie: widths of columns, heights of rows, and their sums. Every question and
/// every change costs the same whatever the sheet's size.
class SheetGeometry {
  public:
    /// Reads the sheet's columns and rows. Both must outlive the geometry.
    SheetGeometry(SheetPart& sheet, const StyleSheet& styles, UndoLog& undo);
    SheetGeometry(const SheetGeometry&) = delete;
    SheetGeometry& operator=(const SheetGeometry&) = delete;
    ~SheetGeometry();

    /// What Range.ColumnWidth tells; 0 for a hidden column.
    [[nodiscard]] ColumnWidth columnWidth(int column) const;
    /// Rounded to whole pixels; a hidden column shows again, and no width hides it. The widths of its
    /// neighbours stay, also where one <col> spans them all.
    void setColumnWidth(int column, ColumnWidth width);
    /// Makes the column wide enough for a text of that many pixels, as AutoFit does (bestFit).
    void fitColumn(int column, double pixels);

    [[nodiscard]] Points rowHeight(int row) const;
    /// Rounded to whole pixels.
    void setRowHeight(int row, Points height);

    /// The distance from the sheet's edge to the cell's; of the column or row behind the last one that is the
    /// sheet's size.
    [[nodiscard]] Points left(int column) const;
    [[nodiscard]] Points top(int row) const;
    /// The place at a distance from the sheet's edges; what lies outside of the sheet is moved to its edge.
    [[nodiscard]] SheetPlace placeAt(Points left, Points top) const;
    /// The distance of a place from the sheet's edges. What would lie beyond the cell lies at its far edge.
    [[nodiscard]] Emu left(const SheetPlace& place) const;
    [[nodiscard]] Emu top(const SheetPlace& place) const;

    /// Whether the sheet does not have all widths of columns yet.
    [[nodiscard]] bool isDirty() const;
    /// Hands the columns to the sheet, which has to happen before the sheet is written. Rows are there
    /// already.
    void store();

  private:
    class Data;
    std::unique_ptr<Data> data_;
};

}  // namespace mergeloom::embedded
