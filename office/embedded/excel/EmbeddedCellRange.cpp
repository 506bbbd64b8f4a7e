#include "office/embedded/excel/EmbeddedCellRange.h"

#include "base/AutomationError.h"
#include "base/Units.h"
#include "office/embedded/excel/EmbeddedWorksheet.h"
#include "office/embedded/sheet/FontMetrics.h"
#include "office/model/excel/Range.h"

#include <algorithm>

namespace mergeloom::embedded {

namespace {

[[noreturn]] void raiseSizeError(const std::string& sentence) {
    throw AutomationError(kApplicationDefined, sentence);
}

void raiseProtected(const SheetContent& sheet, const char* what) {
    raiseSizeError("The sheet '" + sheet.entry().name + "' is protected: its " + what +
                   " cannot be changed.");
}

void checkColumns(const SheetContent& sheet) {
    if (sheet.protection().formatColumns) raiseProtected(sheet, "columns");
}

/// Returns the width in pixels of the widest text of a column's cells; 0 if there is none.
double widestText(WorkbookContent& content, std::size_t sheetIndex, const excel::CellArea& column) {
    SheetContent& sheet = content.sheet(sheetIndex);
    double widest = 0;
    for (excel::CellPosition cell = column.first; cell.row <= column.last.row; ++cell.row) {
        const excel::CellArea merged = sheet.merged().areaAt(cell);
        if (merged.first != merged.last) continue;
        const int style = sheet.part().cell(cell).style;
        if (content.styles().skipsAutoFit(style)) continue;
        widest =
            std::max(widest, textWidth(content.textOf(sheetIndex, cell), content.styles().fontOf(style)));
    }
    return widest;
}

/// Changes of widths and heights raise kApplicationDefined, with a sentence for the user, if the sheet is
/// protected against them or a column or row cannot have that size.
void setColumnWidth(WorkbookContent& content, SheetContent& sheet, const excel::CellArea& area,
                    ColumnWidth width) {
    checkColumns(sheet);
    if (width < ColumnWidth{0} || width > excel::kWidestColumn)
        raiseSizeError("A column cannot have that width.");
    content.touch();
    sheet.drawing().keepSizes([&] {
        for (int column = area.first.column; column <= area.last.column; ++column)
            sheet.geometry().setColumnWidth(column, width);
    });
}

void setRowHeight(WorkbookContent& content, SheetContent& sheet, const excel::CellArea& area, Points height) {
    if (sheet.protection().formatRows) raiseProtected(sheet, "rows");
    if (height < Points{0} || height > excel::kHighestRow) raiseSizeError("A row cannot have that height.");
    content.touch();
    sheet.drawing().keepSizes([&] {
        for (int row = area.first.row; row <= area.last.row; ++row)
            sheet.geometry().setRowHeight(row, height);
    });
}

/// Fits each column of the area to the widest text of the area's cells in it.
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

class EmbeddedColumns final : public excel::Columns {
  public:
    EmbeddedColumns(std::shared_ptr<WorkbookContent> content, std::size_t sheet, const excel::CellArea& area)
        : content_(std::move(content)), sheet_(sheet), area_(area) {}

    int Count() override { return area_.columns(); }
    void AutoFit() override { fitColumns(*content_, sheet_, area_); }

  private:
    std::shared_ptr<WorkbookContent> content_;
    std::size_t sheet_;
    excel::CellArea area_;
};

}  // namespace

excel::RangePtr rangeOf(const std::shared_ptr<WorkbookContent>& content, std::size_t sheet,
                        const excel::CellArea& area) {
    return std::make_shared<EmbeddedCellRange>(content, sheet, area);
}

excel::WorksheetPtr EmbeddedCellRange::Worksheet() {
    return std::make_shared<EmbeddedWorksheet>(content_, sheet_);
}

excel::ColumnsPtr EmbeddedCellRange::Columns() {
    return std::make_shared<EmbeddedColumns>(content_, sheet_, area());
}

excel::RangePtr EmbeddedCellRange::MergeArea() {
    return rangeAt(sheet().merged().areaAt(area().first));
}

void EmbeddedCellRange::SetValue(const std::string& text) {
    content_->fill(sheet_, area(), text);
}

void EmbeddedCellRange::Select() {
    content_->activate(sheet_);
    sheet().select({area().first, {area()}});
}

void EmbeddedCellRange::Activate() {
    content_->activate(sheet_);
    sheet().select(withActiveCell(sheet().selection(), sheet().merged().areaAt(area().first)));
}

void EmbeddedCellRange::SetColumnWidth(mergeloom::ColumnWidth width) {
    setColumnWidth(*content_, sheet(), area(), width);
}

void EmbeddedCellRange::SetRowHeight(Points height) {
    setRowHeight(*content_, sheet(), area(), height);
}

Points EmbeddedCellRange::Width() {
    return {geometry().left(area().last.column + 1).value - geometry().left(area().first.column).value};
}

Points EmbeddedCellRange::Height() {
    return {geometry().top(area().last.row + 1).value - geometry().top(area().first.row).value};
}

excel::RangePtr EmbeddedCellRange::rangeAt(const excel::CellArea& area) const {
    return rangeOf(content_, sheet_, area);
}

}  // namespace mergeloom::embedded
