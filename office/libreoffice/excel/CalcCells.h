#pragma once

#include "base/Text.h"
#include "office/libreoffice/session/Uno.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/excel/CellAddress.h"

#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/table/CellRangeAddress.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <functional>
#include <string>
#include <vector>

/// A sheet's cells in UNO. All functions must run within a call.
namespace mergeloom::libreoffice {

/// Returns the area of UNO's address, which counts rows and columns from 0.
[[nodiscard]] inline excel::CellArea areaOf(const css::table::CellRangeAddress& address) {
    return {{address.StartRow + 1, address.StartColumn + 1}, {address.EndRow + 1, address.EndColumn + 1}};
}

/// Returns Calc's notation of an address on a sheet: "$'Sheet1'.$B$3".
[[nodiscard]] inline std::string referenceOnSheet(const std::string& sheet, const std::string& address) {
    return "$'" + replaceAll(sheet, "'", "''") + "'." + address;
}

/// The kinds of cell contents, which do not include formats.
inline constexpr sal_Int16 kContentFlags = css::sheet::CellFlags::VALUE | css::sheet::CellFlags::DATETIME |
                                           css::sheet::CellFlags::STRING | css::sheet::CellFlags::FORMULA;

[[nodiscard]] Reference<css::table::XCell> cellOf(const Reference<css::sheet::XSpreadsheet>& sheet,
                                                  const excel::CellPosition& cell);
[[nodiscard]] Reference<css::table::XCellRange> rangeOf(const Reference<css::sheet::XSpreadsheet>& sheet,
                                                        const excel::CellArea& area);
/// Returns the areas of cells that are not empty.
[[nodiscard]] std::vector<excel::CellArea> filledIn(const Reference<css::sheet::XSpreadsheet>& sheet,
                                                    const excel::CellArea& area);

template <typename Work>
void forEachCell(const excel::CellArea& area, const Work& work) {
    for (excel::CellPosition cell = area.first; cell.row <= area.last.row; ++cell.row)
        for (cell.column = area.first.column; cell.column <= area.last.column; ++cell.column)
            work(cell);
}

/// The contents of an area's cells before a change, without the formats of single letters. Empty cells take
/// no memory.
class CalcFormerCells {
  public:
    /// Must run within a call.
    CalcFormerCells(const Reference<css::sheet::XSpreadsheet>& sheet, const excel::CellArea& area);

    /// Exchanges the contents of the cells with the kept ones. The function is called after each change. Must
    /// run within a call.
    void exchange(const std::function<void()>& afterChange);

  private:
    struct Content {
        Reference<css::table::XCell> cell;
        css::table::CellContentType type;
        double number = 0;
        OUString text;
    };
    void read(const Reference<css::table::XCell>& cell);
    void restore(const std::function<void()>& afterChange) const;

    Reference<css::sheet::XSpreadsheet> sheet_;
    excel::CellArea area_;
    std::vector<Content> contents_;
};

}  // namespace mergeloom::libreoffice
