#pragma once

#include "base/AutomationError.h"
#include "base/Text.h"
#include "base/Units.h"
#include "office/model/excel/Forward.h"

#include <cstdint>
#include <string>

namespace mergeloom::excel {

/// The columns of a range.
class Columns : public Counted {
  public:
    /// Makes each column as wide as the widest text of the range's cells in it; an empty column stays. Raises
    /// kApplicationDefined for a protected sheet.
    virtual void AutoFit() = 0;
};

/// A block of cells of one sheet. Rows and columns are counted from 1. A call that leads out of the sheet
/// (1,048,576 rows, 16,384 columns) raises kApplicationDefined.
class Range : public Object {
  public:
    virtual WorksheetPtr Worksheet() = 0;
    /// Return the number of the first row and first column in the sheet.
    virtual int Row() = 0;
    virtual int Column() = 0;
    virtual CountedPtr Rows() = 0;
    virtual ColumnsPtr Columns() = 0;
    /// Returns the absolute address without the sheet, such as "$B$3" or "$B$3:$D$4".
    virtual std::string AddressLocal() = 0;

    /// Returns the cell in a row and column counted from the range's first cell; it may be outside of the
    /// range.
    virtual RangePtr Cells(int row, int column) = 0;
    /// Returns a block of that size from the first cell on.
    virtual RangePtr Resize(int rowSize, int columnSize) = 0;
    /// Returns a block of the same size, moved by the given rows and columns. Merged cells count as the cells
    /// they cover.
    virtual RangePtr Offset(int rowOffset, int columnOffset) = 0;
    /// Returns the merged cells that the range's first cell belongs to; the cell itself when it is not
    /// merged.
    virtual RangePtr MergeArea() = 0;
    /// Returns true when any of the cells is merged with others.
    virtual bool MergeCells() = 0;

    /// Returns the text, number or truth value of the first cell as it is shown; empty for an empty cell.
    virtual std::string Value() = 0;
    /// Writes the text into every cell, always as a text: it never becomes a number, a date or a formula. Of
    /// merged cells, the first one gets it. Raises kApplicationDefined, with a sentence for the user, for
    /// cells that are protected or part of an array formula or of a pivot table.
    virtual void SetValue(const std::string& text) = 0;

    /// Makes the range the selection and its first cell the active cell; its sheet becomes the active one.
    virtual void Select() = 0;
    /// Makes the first cell the active one. The selection stays when it holds that cell, otherwise the cell
    /// is selected. A merged cell makes the first of the merged cells the active one.
    virtual void Activate() = 0;

    /// Get and set the size of the first column and row. A new size is rounded to whole pixels. Raises
    /// kApplicationDefined above kWidestColumn and kHighestRow, and for a protected sheet.
    virtual mergeloom::ColumnWidth ColumnWidth() = 0;
    virtual void SetColumnWidth(mergeloom::ColumnWidth width) = 0;
    virtual Points RowHeight() = 0;
    virtual void SetRowHeight(Points height) = 0;

    /// Return the block's place and size on the sheet; hidden rows and columns have no size.
    virtual Points Left() = 0;
    virtual Points Top() = 0;
    virtual Points Width() = 0;
    virtual Points Height() = 0;
};

inline constexpr mergeloom::ColumnWidth kWidestColumn{255};
inline constexpr Points kHighestRow{409.5};
/// Excel's limit for the text of a cell.
inline constexpr CharacterCount kMaxCellText{32767};
/// The limit of cells that are filled at once: a whole column. The cells of a whole sheet would not fit into
/// memory.
inline constexpr std::int64_t kMaxFilledCells = 1048576;

/// The selection: cells, or another object.
class Selection : public Object {
  public:
    /// Returns "Range" for cells, of one area or several, otherwise the kind of the object, such as "Picture"
    /// or "ChartArea".
    virtual std::string TypeName() = 0;
    /// Writes the text into every selected cell; errors as for Range.SetValue, and for an object without
    /// cells.
    virtual void SetValue2(const std::string& text) = 0;
};

/// The selection of a sheet without cells.
class ChartSelection final : public Selection {
  public:
    std::string TypeName() override { return "ChartArea"; }
    void SetValue2(const std::string& /*text*/) override {
        throw AutomationError(kApplicationDefined, "The active sheet has no cells.");
    }
};

}  // namespace mergeloom::excel
