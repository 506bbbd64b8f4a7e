#pragma once

#include "base/Text.h"
#include "base/Units.h"
#include "office/model/excel/Forward.h"

#include <cstdint>
#include <string>

namespace mergeloom::excel {

/// A block of cells of one sheet. Rows and columns are counted from 1. What leads out of the sheet (1,048,576
/// rows, 16,384 columns) raises kApplicationDefined.
class Range : public Object {
  public:
    virtual WorksheetPtr Worksheet() = 0;
    /// The first row's and first column's number in the sheet.
    virtual int Row() = 0;
    virtual int Column() = 0;
    virtual CountedPtr Rows() = 0;
    virtual ColumnsPtr Columns() = 0;
    /// The absolute address without the sheet, such as "$B$3" or "$B$3:$D$4".
    virtual std::string AddressLocal() = 0;

    /// The cell in a row and column counted from the range's first cell; it may lie outside the range.
    virtual RangePtr Cells(int row, int column) = 0;
    /// A block of that size from the first cell on.
    virtual RangePtr Resize(int rowSize, int columnSize) = 0;
    /// A block of the same size so many rows and columns further. Merged cells count as the cells they cover.
    virtual RangePtr Offset(int rowOffset, int columnOffset) = 0;
    /// The merged cells that the range's first cell belongs to; the cell itself when it is not merged.
    virtual RangePtr MergeArea() = 0;
    /// Whether any of the cells is merged with others.
    virtual bool MergeCells() = 0;

    /// What the first cell shows for a text, number or truth value; empty for an empty cell.
    virtual std::string Value() = 0;
    /// Writes the text into every cell, as a text whatever it looks like: it never becomes a number, a date
    /// or a formula. Of merged cells the first one takes it. Raises kApplicationDefined, with a sentence for
    /// the user, for cells that are protected or part of an array formula or of a pivot table.
    virtual void SetValue(const std::string& text) = 0;

    /// Makes the range the selection and its first cell the active cell; its sheet becomes the active one.
    virtual void Select() = 0;
    /// Makes the first cell the active one. The selection stays when it holds that cell, else the cell is
    /// selected. A merged cell makes the first of the merged cells the active one.
    virtual void Activate() = 0;

    /// Of the first column and row. A set size is rounded to whole pixels. Raises kApplicationDefined above
    /// kWidestColumn and kHighestRow, and for a protected sheet.
    virtual mergeloom::ColumnWidth ColumnWidth() = 0;
    virtual void SetColumnWidth(mergeloom::ColumnWidth width) = 0;
    virtual Points RowHeight() = 0;
    virtual void SetRowHeight(Points height) = 0;

    /// The block's place on the sheet and its size there; hidden rows and columns take no room.
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

}  // namespace mergeloom::excel
