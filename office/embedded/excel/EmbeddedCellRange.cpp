#include "office/embedded/excel/EmbeddedCellRange.h"

#include "base/AutomationError.h"
#include "office/embedded/excel/EmbeddedColumns.h"
#include "office/embedded/excel/EmbeddedWorksheet.h"
#include "office/embedded/excel/SheetSizes.h"

#include <algorithm>

namespace mergeloom::embedded {

namespace {

class CountedRows final : public excel::Counted {
  public:
    explicit CountedRows(int count) : count_(count) {}
    int Count() override { return count_; }

  private:
    int count_;
};

/// The sum of two numbers that may come from a caller's mistake.
int sum(int a, int b) {
    return static_cast<int>(
        std::clamp<std::int64_t>(std::int64_t{a} + b, -excel::kLastRow, std::int64_t{2} * excel::kLastRow));
}

excel::CellArea areaFrom(const excel::CellPosition& first, int rows, int columns) {
    return {first, {sum(first.row, rows - 1), sum(first.column, columns - 1)}};
}

}  // namespace

excel::RangePtr rangeOf(const std::shared_ptr<WorkbookContent>& content, std::size_t sheet,
                        const excel::CellArea& area) {
    if (!isInSheet(area)) throw AutomationError(kApplicationDefined, "The sheet has no such cells.");
    return std::make_shared<EmbeddedCellRange>(content, sheet, area);
}

excel::WorksheetPtr EmbeddedCellRange::Worksheet() {
    return std::make_shared<EmbeddedWorksheet>(content_, sheet_);
}

excel::CountedPtr EmbeddedCellRange::Rows() {
    return std::make_shared<CountedRows>(area_.rows());
}

excel::ColumnsPtr EmbeddedCellRange::Columns() {
    return std::make_shared<EmbeddedColumns>(content_, sheet_, area_);
}

excel::RangePtr EmbeddedCellRange::Cells(int row, int column) {
    const excel::CellPosition cell{sum(area_.first.row, row - 1), sum(area_.first.column, column - 1)};
    return block({cell, cell});
}

excel::RangePtr EmbeddedCellRange::Resize(int rowSize, int columnSize) {
    return block(areaFrom(area_.first, rowSize, columnSize));
}

excel::RangePtr EmbeddedCellRange::Offset(int rowOffset, int columnOffset) {
    const excel::CellPosition first{sum(area_.first.row, rowOffset), sum(area_.first.column, columnOffset)};
    return block(areaFrom(first, area_.rows(), area_.columns()));
}

excel::RangePtr EmbeddedCellRange::MergeArea() {
    return block(sheet().merged().areaAt(area_.first));
}

void EmbeddedCellRange::SetValue(const std::string& text) {
    content_->fill(sheet_, area_, text);
}

void EmbeddedCellRange::Select() {
    content_->activate(sheet_);
    sheet().select({area_.first, {area_}});
}

void EmbeddedCellRange::Activate() {
    content_->activate(sheet_);
    const excel::CellArea merged = sheet().merged().areaAt(area_.first);
    SheetSelection selection = sheet().selection();
    const auto holdsCell = [&](const excel::CellArea& area) { return area.contains(merged.first); };
    if (!std::ranges::any_of(selection.areas, holdsCell)) selection.areas = {merged};
    selection.activeCell = merged.first;
    sheet().select(selection);
}

void EmbeddedCellRange::SetColumnWidth(mergeloom::ColumnWidth width) {
    setColumnWidth(*content_, sheet(), area_, width);
}

void EmbeddedCellRange::SetRowHeight(Points height) {
    setRowHeight(*content_, sheet(), area_, height);
}

Points EmbeddedCellRange::Width() {
    return {geometry().left(area_.last.column + 1).value - geometry().left(area_.first.column).value};
}

Points EmbeddedCellRange::Height() {
    return {geometry().top(area_.last.row + 1).value - geometry().top(area_.first.row).value};
}

excel::RangePtr EmbeddedCellRange::block(const excel::CellArea& area) const {
    return rangeOf(content_, sheet_, area);
}

}  // namespace mergeloom::embedded
