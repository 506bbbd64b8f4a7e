#include "office/libreoffice/excel/CalcRange.h"

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcSizes.h"
#include "office/libreoffice/excel/CalcTexts.h"
#include "office/libreoffice/excel/CalcWorksheet.h"
#include "office/model/excel/Columns.h"

#include <algorithm>
#include <cstdint>

namespace mergeloom::libreoffice {

namespace {

class CalcColumns final : public excel::Columns {
  public:
    CalcColumns(CalcContentPtr content, std::size_t sheet, const excel::CellArea& area)
        : content_(std::move(content)), sheet_(sheet), area_(area) {}

    int Count() override { return area_.columns(); }
    void AutoFit() override { fitColumns(*content_, sheet_, area_); }

  private:
    CalcContentPtr content_;
    std::size_t sheet_;
    excel::CellArea area_;
};

class CalcRows final : public excel::Counted {
  public:
    explicit CalcRows(int count) : count_(count) {}
    int Count() override { return count_; }

  private:
    int count_;
};

/// Returns the sum of two numbers, bounded because a caller may pass any number.
int sum(int a, int b) {
    return static_cast<int>(
        std::clamp<std::int64_t>(std::int64_t{a} + b, -excel::kLastRow, std::int64_t{2} * excel::kLastRow));
}

excel::CellArea areaFrom(const excel::CellPosition& first, int rows, int columns) {
    return {first, {sum(first.row, rows - 1), sum(first.column, columns - 1)}};
}

}  // namespace

excel::RangePtr calcRangeOf(const CalcContentPtr& content, std::size_t sheet, const excel::CellArea& area) {
    if (!isInSheet(area)) throw AutomationError(kApplicationDefined, "The sheet has no such cells.");
    return std::make_shared<CalcRange>(content, sheet, area);
}

excel::RangePtr CalcRange::block(const excel::CellArea& area) const {
    return calcRangeOf(content_, sheet_, area);
}

excel::WorksheetPtr CalcRange::Worksheet() {
    return std::make_shared<CalcWorksheet>(content_, sheet_);
}

excel::CountedPtr CalcRange::Rows() {
    return std::make_shared<CalcRows>(area_.rows());
}

excel::ColumnsPtr CalcRange::Columns() {
    return std::make_shared<CalcColumns>(content_, sheet_, area_);
}

excel::RangePtr CalcRange::Cells(int row, int column) {
    const excel::CellPosition cell{sum(area_.first.row, sum(row, -1)),
                                   sum(area_.first.column, sum(column, -1))};
    return block({cell, cell});
}

excel::RangePtr CalcRange::Resize(int rowSize, int columnSize) {
    return block(areaFrom(area_.first, rowSize, columnSize));
}

excel::RangePtr CalcRange::Offset(int rowOffset, int columnOffset) {
    const excel::CellPosition first{sum(area_.first.row, rowOffset), sum(area_.first.column, columnOffset)};
    return block(areaFrom(first, area_.rows(), area_.columns()));
}

excel::RangePtr CalcRange::MergeArea() {
    return block(sheet().merged().at(area_.first));
}

std::string CalcRange::Value() {
    return textOf(*content_, sheet_, area_.first);
}

void CalcRange::SetValue(const std::string& text) {
    fill(*content_, sheet_, area_, text);
}

void CalcRange::Select() {
    content_->activate(sheet_);
    content_->select(sheet_, {area_.first, {area_}});
}

void CalcRange::Activate() {
    content_->activate(sheet_);
    const excel::CellArea merged = sheet().merged().at(area_.first);
    CalcSelectedCells selection = sheet().selection();
    const auto holdsCell = [&](const excel::CellArea& area) { return area.contains(merged.first); };
    if (!std::ranges::any_of(selection.areas, holdsCell)) selection.areas = {merged};
    selection.activeCell = merged.first;
    content_->select(sheet_, selection);
}

mergeloom::ColumnWidth CalcRange::ColumnWidth() {
    return columnWidth(*content_, sheet_, area_.first.column);
}

void CalcRange::SetColumnWidth(mergeloom::ColumnWidth width) {
    setColumnWidth(*content_, sheet_, area_, width);
}

Points CalcRange::RowHeight() {
    return rowHeight(*content_, sheet_, area_.first.row);
}

void CalcRange::SetRowHeight(Points height) {
    setRowHeight(*content_, sheet_, area_, height);
}

Points CalcRange::Left() {
    return content_->columnUnits().pointsOf(cellPlace(*content_, sheet_, area_.first).X);
}

Points CalcRange::Top() {
    return pointsOf(cellPlace(*content_, sheet_, area_.first).Y);
}

Points CalcRange::Width() {
    return content_->columnUnits().pointsOf(blockSize(*content_, sheet_, area_).Width);
}

Points CalcRange::Height() {
    return pointsOf(blockSize(*content_, sheet_, area_).Height);
}

}  // namespace mergeloom::libreoffice
