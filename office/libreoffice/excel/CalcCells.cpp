#include "office/libreoffice/excel/CalcCells.h"

#include "office/libreoffice/excel/CalcAddress.h"

#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>

namespace mergeloom::libreoffice {

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
    // Of a column behind the last one with a content Calc tells that one's cells.
    for (const css::table::CellRangeAddress& address : filled->getRangeAddresses())
        if (const auto cells = intersection(areaOf(address), area)) areas.push_back(*cells);
    return areas;
}

}  // namespace mergeloom::libreoffice
