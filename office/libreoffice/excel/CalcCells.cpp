#include "office/libreoffice/excel/CalcCells.h"

#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/sheet/XSheetOperation.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <utility>

namespace mergeloom::libreoffice {

namespace {

Reference<css::text::XTextRange> textIn(const Reference<css::table::XCell>& cell) {
    return {cell, UNO_QUERY_THROW};
}

}  // namespace

Reference<css::table::XCell> cellOf(const Reference<css::sheet::XSpreadsheet>& sheet,
                                    const excel::CellPosition& cell) {
    return sheet->getCellByPosition(cell.column - 1, cell.row - 1);
}

Reference<css::table::XCellRange> rangeOf(const Reference<css::sheet::XSpreadsheet>& sheet,
                                          const excel::CellArea& area) {
    return sheet->getCellRangeByPosition(area.first.column - 1, area.first.row - 1, area.last.column - 1,
                                         area.last.row - 1);
}

std::vector<excel::CellArea> filledIn(const Reference<css::sheet::XSpreadsheet>& sheet,
                                      const excel::CellArea& area) {
    const Reference<css::sheet::XCellRangesQuery> query(rangeOf(sheet, area), UNO_QUERY_THROW);
    const Reference<css::sheet::XSheetCellRanges> filled = query->queryContentCells(kContentFlags);
    std::vector<excel::CellArea> areas;
    // For a column after the last one with content, Calc returns the cells of that one.
    for (const css::table::CellRangeAddress& address : filled->getRangeAddresses())
        if (const auto cells = intersection(areaOf(address), area)) areas.push_back(*cells);
    return areas;
}

CalcFormerCells::CalcFormerCells(const Reference<css::sheet::XSpreadsheet>& sheet,
                                 const excel::CellArea& area)
    : sheet_(sheet), area_(area) {
    for (const excel::CellArea& filled : filledIn(sheet, area)) {
        forEachCell(filled, [&](const excel::CellPosition& cell) { read(cellOf(sheet, cell)); });
    }
}

void CalcFormerCells::read(const Reference<css::table::XCell>& cell) {
    Content content{cell, cell->getType(), 0, {}};
    if (content.type == css::table::CellContentType_VALUE) content.number = cell->getValue();
    if (content.type == css::table::CellContentType_FORMULA) content.text = cell->getFormula();
    if (content.type == css::table::CellContentType_TEXT) content.text = textIn(cell)->getString();
    contents_.push_back(content);
}

void CalcFormerCells::exchange(const std::function<void()>& afterChange) {
    CalcFormerCells replaced(sheet_, area_);
    restore(afterChange);
    *this = std::move(replaced);
}

void CalcFormerCells::restore(const std::function<void()>& afterChange) const {
    const Reference<css::sheet::XSheetOperation> cells(rangeOf(sheet_, area_), UNO_QUERY_THROW);
    cells->clearContents(kContentFlags);
    afterChange();
    for (const Content& content : contents_) {
        if (content.type == css::table::CellContentType_VALUE) content.cell->setValue(content.number);
        if (content.type == css::table::CellContentType_FORMULA) content.cell->setFormula(content.text);
        if (content.type == css::table::CellContentType_TEXT) textIn(content.cell)->setString(content.text);
        afterChange();
    }
}

}  // namespace mergeloom::libreoffice
