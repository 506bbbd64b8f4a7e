#pragma once

#include "office/libreoffice/session/Uno.h"
#include "office/libreoffice/session/UnoText.h"
#include "office/model/excel/CellAddress.h"

#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <vector>

namespace mergeloom::libreoffice {

/// What the cells of an area hold before a change, texts without the formats of single letters. Empty cells
/// cost nothing.
class CalcFormerCells {
  public:
    /// Within a call.
    CalcFormerCells(const Reference<css::sheet::XSpreadsheet>& sheet, const excel::CellArea& area);

    /// Makes the cells hold it again. Within a call.
    void restore() const;

  private:
    struct Content {
        Reference<css::table::XCell> cell;
        css::table::CellContentType type;
        double number = 0;
        OUString text;
    };
    void read(const Reference<css::table::XCell>& cell);

    Reference<css::table::XCellRange> cells_;
    std::vector<Content> contents_;
};

}  // namespace mergeloom::libreoffice
