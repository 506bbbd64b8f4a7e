#pragma once

#include "office/libreoffice/session/Uno.h"
#include "office/model/excel/CellAddress.h"

#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <vector>

/// A sheet's cells in UNO. All of these are asked for within a call.
namespace mergeloom::libreoffice {

/// What counts as a cell's content, of which formats are no part.
inline constexpr sal_Int16 kContentFlags = css::sheet::CellFlags::VALUE | css::sheet::CellFlags::DATETIME |
                                           css::sheet::CellFlags::STRING | css::sheet::CellFlags::FORMULA;

[[nodiscard]] Reference<css::table::XCell> cellOf(const Reference<css::sheet::XSpreadsheet>& sheet,
                                                  const excel::CellPosition& cell);
[[nodiscard]] Reference<css::table::XCellRange> rangeOf(const Reference<css::sheet::XSpreadsheet>& sheet,
                                                        const excel::CellArea& area);
/// Those of the area that are not empty.
[[nodiscard]] std::vector<excel::CellArea> filledIn(const Reference<css::sheet::XSpreadsheet>& sheet,
                                                    const excel::CellArea& area);

template <typename Work>
void forEachCell(const excel::CellArea& area, const Work& work) {
    for (excel::CellPosition cell = area.first; cell.row <= area.last.row; ++cell.row)
        for (cell.column = area.first.column; cell.column <= area.last.column; ++cell.column)
            work(cell);
}

}  // namespace mergeloom::libreoffice
