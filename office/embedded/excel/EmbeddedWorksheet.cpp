#include "office/embedded/excel/EmbeddedWorksheet.h"

#include "base/AutomationError.h"
#include "office/embedded/excel/EmbeddedCellRange.h"
#include "office/embedded/excel/EmbeddedPictures.h"
#include "office/embedded/excel/EmbeddedShapes.h"

namespace mergeloom::embedded {

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

}  // namespace mergeloom::embedded
