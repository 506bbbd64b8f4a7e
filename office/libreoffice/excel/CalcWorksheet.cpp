#include "office/libreoffice/excel/CalcWorksheet.h"

#include "base/AutomationError.h"
#include "office/libreoffice/excel/CalcCells.h"
#include "office/libreoffice/excel/CalcRange.h"
#include "office/libreoffice/excel/CalcShapes.h"

#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XSheetCellCursor.hpp>
#include <com/sun/star/sheet/XUsedAreaCursor.hpp>
#include <optional>

namespace mergeloom::libreoffice {

namespace {

[[noreturn]] void refuse() {
    throw AutomationError(kSubscriptOutOfRange, "There is no such sheet.");
}

}  // namespace

excel::RangePtr CalcWorksheet::Cells(int row, int column) {
    return calcRangeOf(content_, sheet_, {{row, column}, {row, column}});
}

excel::RangePtr CalcWorksheet::Range(const std::string& address) {
    const std::optional<excel::CellPosition> cell = excel::parseCell(address);
    if (!cell) throw AutomationError(kApplicationDefined, "'" + address + "' is no address of a cell.");
    return calcRangeOf(content_, sheet_, {*cell, *cell});
}

excel::RangePtr CalcWorksheet::UsedRange() {
    content_->pending().flush();
    const excel::CellArea used = content_->connection().call([&] {
        const auto cursor = content_->sheet(sheet_).uno()->createCursor();
        const Reference<css::sheet::XUsedAreaCursor> usedArea(cursor, UNO_QUERY_THROW);
        usedArea->gotoStartOfUsedArea(false);
        usedArea->gotoEndOfUsedArea(true);
        const Reference<css::sheet::XCellRangeAddressable> address(cursor, UNO_QUERY_THROW);
        return areaOf(address->getRangeAddress());
    });
    return calcRangeOf(content_, sheet_, used);
}

excel::ShapesPtr CalcWorksheet::Shapes() {
    return std::make_shared<CalcShapes>(content_, sheet_);
}

excel::PicturesPtr CalcWorksheet::Pictures() {
    return std::make_shared<CalcPictures>(content_, sheet_);
}

CalcWorksheets::CalcWorksheets(CalcContentPtr content) : content_(std::move(content)) {
    for (std::size_t index = 0; index < content_->sheetCount(); ++index)
        if (content_->sheet(index).hasCells()) sheets_.push_back(index);
}

excel::WorksheetPtr CalcWorksheets::Item(int number) {
    return std::make_shared<CalcWorksheet>(content_, sheets_[indexOf(number)]);
}

excel::WorksheetPtr CalcWorksheets::Item(const std::string& name) {
    const std::optional<std::size_t> sheet = content_->sheetNamed(name);
    if (!sheet) refuse();
    return std::make_shared<CalcWorksheet>(content_, *sheet);
}

}  // namespace mergeloom::libreoffice
