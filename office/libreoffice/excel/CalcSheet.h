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
    CalcCell activeCell;
    std::vector<CalcArea> areas{{}};

    friend bool operator==(const CalcSelectedCells&, const CalcSelectedCells&) = default;
};

/// One sheet of cells. What nobody changes while the document is open (merged cells, protection, formulas) is
/// asked once and remembered.
class CalcSheet {
  public:
    CalcSheet(OfficeConnection& connection, CalcPending& pending,
              const Reference<css::sheet::XSpreadsheet>& sheet, std::string name, const CalcCell& activeCell);

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
    void checkMayWrite(const CalcArea& area);

    /// Cells as they are when nothing waits any more. Within a call.
    [[nodiscard]] Reference<css::table::XCell> cell(const CalcCell& cell) const;
    [[nodiscard]] Reference<css::table::XCellRange> range(const CalcArea& area) const;

  private:
    [[nodiscard]] bool isLocked(const CalcArea& area);
    [[nodiscard]] bool hasArray(const CalcArea& area);
    [[nodiscard]] bool hasPivotTable(const CalcArea& area);
    [[nodiscard]] const std::vector<CalcArea>& formulas();
    [[nodiscard]] const std::vector<CalcArea>& pivotTables();

    OfficeConnection& connection_;
    CalcPending& pending_;
    Reference<css::sheet::XSpreadsheet> sheet_;
    std::string name_;
    CalcSheetKind kind_ = CalcSheetKind::Worksheet;
    CalcSelectedCells selection_;
    CalcMergedCells merged_;
    std::optional<CalcShapeTable> shapes_;
    std::optional<bool> isProtected_;
    std::optional<std::vector<CalcArea>> formulas_;
    std::optional<std::vector<CalcArea>> pivotTables_;
};

}  // namespace mergeloom::libreoffice
