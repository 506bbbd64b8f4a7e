#pragma once

#include "office/embedded/sheet/SheetState.h"
#include "office/embedded/sheet/XmlSplicer.h"

namespace mergeloom::embedded {

/// Writes the rows of a sheet with what was changed in them.
class RowWriter {
  public:
    /// The sheet must outlive the writer.
    explicit RowWriter(const SheetState& sheet)
        : xml_(sheet.xml), index_(sheet.index), edits_(sheet.edits), cells_(sheet.cells) {}

    /// Tells all changes between the start tag and the end tag of sheetData, which the part must hold.
    void write(XmlSplicer& splicer) const;
    /// The whole sheetData of a part that holds no row.
    [[nodiscard]] std::string newSheetData() const;

  private:
    [[nodiscard]] std::string newRow(int number, const RowEdits& edits) const;
    [[nodiscard]] std::string newCells(int row, const RowEdits& edits) const;
    void changeRow(XmlSplicer& splicer, const IndexedRow& row, const RowEdits& edits) const;
    void changeCells(XmlSplicer& splicer, const IndexedRow& row, const RowEdits& edits) const;

    std::string_view xml_;
    const SheetIndex& index_;
    const CellEdits& edits_;
    const SheetCells& cells_;
};

}  // namespace mergeloom::embedded
