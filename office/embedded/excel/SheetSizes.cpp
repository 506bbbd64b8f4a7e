#include "office/embedded/excel/SheetSizes.h"

#include "base/AutomationError.h"
#include "office/embedded/sheet/FontMetrics.h"
#include "office/model/excel/Range.h"

#include <algorithm>

namespace mergeloom::embedded {

namespace {

[[noreturn]] void refuseSize(const std::string& sentence) {
    throw AutomationError(kApplicationDefined, sentence);
}

void refuseProtected(const SheetContent& sheet, const char* what) {
    refuseSize("The sheet '" + sheet.entry().name + "' is protected: its " + what + " cannot be changed.");
}

void checkColumns(const SheetContent& sheet) {
    if (sheet.protection().formatColumns) refuseProtected(sheet, "columns");
}

/// The width in pixels of the widest text of a column's cells; 0 when none asks for room.
double widestText(WorkbookContent& content, std::size_t sheetIndex, const excel::CellArea& column) {
    SheetContent& sheet = content.sheet(sheetIndex);
    double widest = 0;
    for (excel::CellPosition cell = column.first; cell.row <= column.last.row; ++cell.row) {
        const excel::CellArea merged = sheet.merged().areaAt(cell);
        if (merged.first != merged.last) continue;
        const int style = sheet.part().cell(cell).style;
        if (content.styles().fitsItself(style)) continue;
        widest =
            std::max(widest, textWidth(content.textOf(sheetIndex, cell), content.styles().fontOf(style)));
    }
    return widest;
}

}  // namespace

void setColumnWidth(WorkbookContent& content, SheetContent& sheet, const excel::CellArea& area,
                    ColumnWidth width) {
    checkColumns(sheet);
    if (width < ColumnWidth{0} || width > excel::kWidestColumn)
        refuseSize("A column cannot have that width.");
    content.touch();
    sheet.drawing().keepSizes([&] {
        for (int column = area.first.column; column <= area.last.column; ++column)
            sheet.geometry().setColumnWidth(column, width);
    });
}

void setRowHeight(WorkbookContent& content, SheetContent& sheet, const excel::CellArea& area, Points height) {
    if (sheet.protection().formatRows) refuseProtected(sheet, "rows");
    if (height < Points{0} || height > excel::kHighestRow) refuseSize("A row cannot have that height.");
    content.touch();
    sheet.drawing().keepSizes([&] {
        for (int row = area.first.row; row <= area.last.row; ++row)
            sheet.geometry().setRowHeight(row, height);
    });
}

void fitColumns(WorkbookContent& content, std::size_t sheetIndex, const excel::CellArea& area) {
    SheetContent& sheet = content.sheet(sheetIndex);
    checkColumns(sheet);
    for (int column = area.first.column; column <= area.last.column; ++column) {
        const double pixels =
            widestText(content, sheetIndex, {{area.first.row, column}, {area.last.row, column}});
        if (pixels == 0) continue;
        content.touch();
        sheet.drawing().keepSizes([&] { sheet.geometry().fitColumn(column, pixels); });
    }
}

}  // namespace mergeloom::embedded
