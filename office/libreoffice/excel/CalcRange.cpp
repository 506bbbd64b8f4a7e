#include "office/libreoffice/excel/CalcRange.h"

#include "office/libreoffice/excel/CalcSizes.h"
#include "office/libreoffice/excel/CalcTexts.h"
#include "office/libreoffice/excel/CalcWorksheet.h"
#include "office/model/excel/Range.h"

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

}  // namespace

excel::RangePtr calcRangeOf(const CalcContentPtr& content, std::size_t sheet, const excel::CellArea& area) {
    return std::make_shared<CalcRange>(content, sheet, area);
}

excel::RangePtr CalcRange::rangeAt(const excel::CellArea& area) const {
    return calcRangeOf(content_, sheet_, area);
}

excel::WorksheetPtr CalcRange::Worksheet() {
    return std::make_shared<CalcWorksheet>(content_, sheet_);
}

excel::ColumnsPtr CalcRange::Columns() {
    return std::make_shared<CalcColumns>(content_, sheet_, area());
}

excel::RangePtr CalcRange::MergeArea() {
    return rangeAt(sheet().merged().at(area().first));
}

std::string CalcRange::Value() {
    return textOf(*content_, sheet_, area().first);
}

void CalcRange::SetValue(const std::string& text) {
    fill(*content_, sheet_, area(), text);
}

void CalcRange::Select() {
    content_->activate(sheet_);
    content_->select(sheet_, {area().first, {area()}});
}

void CalcRange::Activate() {
    content_->activate(sheet_);
    content_->select(sheet_, withActiveCell(sheet().selection(), sheet().merged().at(area().first)));
}

mergeloom::ColumnWidth CalcRange::ColumnWidth() {
    return columnWidth(*content_, sheet_, area().first.column);
}

void CalcRange::SetColumnWidth(mergeloom::ColumnWidth width) {
    setColumnWidth(*content_, sheet_, area(), width);
}

Points CalcRange::RowHeight() {
    return rowHeight(*content_, sheet_, area().first.row);
}

void CalcRange::SetRowHeight(Points height) {
    setRowHeight(*content_, sheet_, area(), height);
}

Points CalcRange::Left() {
    return content_->columnUnits().pointsOf(cellPlace(*content_, sheet_, area().first).X);
}

Points CalcRange::Top() {
    return pointsOf(cellPlace(*content_, sheet_, area().first).Y);
}

Points CalcRange::Width() {
    return content_->columnUnits().pointsOf(blockSize(*content_, sheet_, area()).Width);
}

Points CalcRange::Height() {
    return pointsOf(blockSize(*content_, sheet_, area()).Height);
}

}  // namespace mergeloom::libreoffice
