#pragma once

#include "office/libreoffice/excel/CalcCells.h"
#include "office/libreoffice/excel/CalcMergedCells.h"
#include "office/libreoffice/excel/CalcPending.h"
#include "office/libreoffice/excel/CalcShapeTable.h"
#include "office/libreoffice/excel/CalcSheetKinds.h"
#include "office/libreoffice/session/OfficeConnection.h"

#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <optional>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// What is selected in a sheet.
struct CalcSelectedCells {
    excel::CellPosition activeCell;
    std::vector<excel::CellArea> areas{{}};

    friend bool operator==(const CalcSelectedCells&, const CalcSelectedCells&) = default;
};

/// One sheet of cells. What nobody changes while the document is open (merged cells, protection, formulas) is
/// asked once and remembered.
class CalcSheet {
  public:
    CalcSheet(OfficeConnection& connection, CalcPending& pending,
              const Reference<css::sheet::XSpreadsheet>& sheet, std::string name,
              const excel::CellPosition& activeCell);

    [[nodiscard]] const Reference<css::sheet::XSpreadsheet>& uno() const { return sheet_; }
    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] bool isHidden();
    /// Calc has cells in all sheets; some of them have none in the file.
    [[nodiscard]] bool hasCells() const { return kind_ == CalcSheetKind::Worksheet; }
    void setKind(CalcSheetKind kind) { kind_ = kind; }

    [[nodiscard]] const CalcSelectedCells& selection() const { return selection_; }
    void select(const CalcSelectedCells& selection) { selection_ = selection; }

    [[nodiscard]] CalcShapeTable& shapes();

    [[nodiscard]] CalcMergedCells& merged() { return merged_; }

    [[nodiscard]] bool isProtected();
    /// Raises kApplicationDefined with a sentence when the sheet is protected.
    void checkMayChange(const char* what);
    /// Raises kApplicationDefined, with a sentence that says why, for cells that take no text.
    void checkMayWrite(const excel::CellArea& area);

    /// Cells as they are when nothing waits any more. Within a call.
    [[nodiscard]] Reference<css::table::XCell> cell(const excel::CellPosition& cell) const;
    [[nodiscard]] Reference<css::table::XCellRange> range(const excel::CellArea& area) const;

  private:
    [[nodiscard]] bool isLocked(const excel::CellArea& area);
    [[nodiscard]] bool hasArray(const excel::CellArea& area);
    [[nodiscard]] bool hasPivotTable(const excel::CellArea& area);
    [[nodiscard]] const std::vector<excel::CellArea>& formulas();
    [[nodiscard]] const std::vector<excel::CellArea>& pivotTables();

    OfficeConnection& connection_;
    CalcPending& pending_;
    Reference<css::sheet::XSpreadsheet> sheet_;
    std::string name_;
    CalcSheetKind kind_ = CalcSheetKind::Worksheet;
    CalcSelectedCells selection_;
    CalcMergedCells merged_;
    std::optional<CalcShapeTable> shapes_;
    std::optional<bool> isProtected_;
    std::optional<std::vector<excel::CellArea>> formulas_;
    std::optional<std::vector<excel::CellArea>> pivotTables_;
};

}  // namespace mergeloom::libreoffice
