#include "office/embedded/excel/EmbeddedWorksheet.h"

#include "base/AutomationError.h"
#include "office/embedded/excel/EmbeddedCellRange.h"
#include "office/embedded/excel/EmbeddedShapes.h"

namespace mergeloom::embedded {

namespace {

[[noreturn]] void refuse() {
    throw AutomationError(kSubscriptOutOfRange, "There is no such sheet.");
}

}  // namespace

excel::RangePtr EmbeddedWorksheet::Cells(int row, int column) {
    return rangeOf(content_, sheet_, {{row, column}, {row, column}});
}

excel::RangePtr EmbeddedWorksheet::Range(const std::string& address) {
    const std::optional<excel::CellPosition> cell = excel::parseCell(address);
    if (!cell) throw AutomationError(kApplicationDefined, "'" + address + "' is no address of a cell.");
    return rangeOf(content_, sheet_, {*cell, *cell});
}

excel::RangePtr EmbeddedWorksheet::UsedRange() {
    return rangeOf(content_, sheet_, content_->sheet(sheet_).part().usedArea().value_or(excel::CellArea{}));
}

excel::ShapesPtr EmbeddedWorksheet::Shapes() {
    return std::make_shared<EmbeddedShapes>(content_, sheet_);
}

excel::PicturesPtr EmbeddedWorksheet::Pictures() {
    return std::make_shared<EmbeddedPictures>(content_, sheet_);
}

EmbeddedWorksheets::EmbeddedWorksheets(std::shared_ptr<WorkbookContent> content)
    : content_(std::move(content)) {
    const std::vector<SheetEntry>& all = content_->workbook().sheets();
    for (std::size_t index = 0; index < all.size(); ++index) {
        if (all[index].kind == SheetKind::Worksheet) sheets_.push_back(index);
    }
}

excel::WorksheetPtr EmbeddedWorksheets::Item(int number) {
    return std::make_shared<EmbeddedWorksheet>(content_, sheets_[indexOf(number)]);
}

excel::WorksheetPtr EmbeddedWorksheets::Item(const std::string& name) {
    const std::optional<std::size_t> sheet = content_->worksheetNamed(name);
    if (!sheet) refuse();
    return std::make_shared<EmbeddedWorksheet>(content_, *sheet);
}

}  // namespace mergeloom::embedded
