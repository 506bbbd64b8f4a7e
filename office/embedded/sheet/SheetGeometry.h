#pragma once

#include "base/Units.h"
#include "office/embedded/sheet/SheetPart.h"
#include "office/embedded/sheet/StyleSheet.h"

#include <memory>

namespace mergeloom::embedded {

/// A position on a sheet's drawing layer: a cell and the distance from its upper left corner.
struct SheetPlace {
    excel::CellPosition cell{};
    Emu right{};
    Emu down{};
};

/// The widths of a sheet's columns, the heights of its rows and the positions of its cells. Every query and
/// every change takes constant time.
class SheetGeometry {
  public:
    /// Reads the sheet's columns and rows. Both must outlive the geometry.
    SheetGeometry(SheetPart& sheet, const StyleSheet& styles, UndoLog& undo);
    ~SheetGeometry();

    /// Returns the value of Range.ColumnWidth; 0 for a hidden column.
    [[nodiscard]] ColumnWidth columnWidth(int column) const;
    /// Sets the width, rounded to whole pixels. A hidden column is shown again, and a width of 0 hides it.
    /// The widths of its neighbours stay, even if one <col> spans them all.
    void setColumnWidth(int column, ColumnWidth width);
    /// Fits the column to a text of that many pixels, as AutoFit does (bestFit).
    void fitColumn(int column, double pixels);

    [[nodiscard]] Points rowHeight(int row) const;
    /// Sets the height, rounded to whole pixels.
    void setRowHeight(int row, Points height);

    /// Returns the distance from the sheet's edge to that of the column or row; for the one after the last,
    /// the sheet's size.
    [[nodiscard]] Points left(int column) const;
    [[nodiscard]] Points top(int row) const;
    /// Returns the place at a distance from the sheet's edges. A position outside of the sheet is moved to
    /// its edge.
    [[nodiscard]] SheetPlace placeAt(Points left, Points top) const;
    /// Returns the distance of a place from the sheet's edges. An offset beyond the cell is cut to its far
    /// edge.
    [[nodiscard]] Emu left(const SheetPlace& place) const;
    [[nodiscard]] Emu top(const SheetPlace& place) const;

    /// Returns true if there are column widths that store() has not yet written to the sheet.
    [[nodiscard]] bool isDirty() const;
    /// Writes the columns into the sheet; call it before the sheet is written. Row heights are in the sheet
    /// already.
    void store();

  private:
    class Data;
    std::unique_ptr<Data> data_;
};

}  // namespace mergeloom::embedded
