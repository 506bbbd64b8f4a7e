#include "droppers/ColumnFit.h"

#include "office/model/excel/Columns.h"
#include "office/model/excel/Shape.h"
#include "office/model/excel/Shapes.h"
#include "office/model/excel/Worksheet.h"

#include <map>

namespace mergeloom {

namespace {

/// Offices round lengths; a pixel too much covers nothing.
constexpr Points kPixel{0.75};

/// The widths of columns, by their numbers in the sheet.
using ColumnWidths = std::map<int, ColumnWidth>;

/// The columns of the block that hold the whole width of an object, which may begin in any of the sheet's
/// rows.
ColumnWidths columnsOfObjects(excel::Range& block) {
    const int first = block.Column();
    const int end = first + block.Columns()->Count();
    const excel::ShapesPtr shapes = block.Worksheet()->Shapes();
    ColumnWidths widths;
    for (int number = 1; number <= shapes->Count(); ++number) {
        const excel::ShapePtr shape = shapes->Item(number);
        const excel::RangePtr cell = shape->TopLeftCell();
        const int column = cell->Column();
        const bool isInside = column >= first && column < end;
        const bool fits = shape->Width().value <= cell->Width().value + kPixel.value;
        if (isInside && fits) widths.emplace(column, cell->ColumnWidth());
    }
    return widths;
}

}  // namespace

void fitColumns(excel::Range& block) {
    const ColumnWidths formerWidths = columnsOfObjects(block);
    block.Columns()->AutoFit();
    for (const auto& [column, width] : formerWidths) {
        const excel::RangePtr cell = block.Cells(1, column - block.Column() + 1);
        if (cell->ColumnWidth() < width) cell->SetColumnWidth(width);
    }
}

}  // namespace mergeloom
