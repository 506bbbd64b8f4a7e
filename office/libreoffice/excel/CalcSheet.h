#pragma once

#include "office/libreoffice/excel/CalcCells.h"
#include "office/libreoffice/excel/CalcPendingEdits.h"
#include "office/libreoffice/excel/CalcShapeTable.h"
#include "office/libreoffice/excel/CalcSheetKinds.h"
#include "office/libreoffice/session/OfficeConnection.h"
#include "office/model/excel/CellAddress.h"

#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace mergeloom::libreoffice {

/// The merged cells of a sheet, which do not change while the object model works with it. They are read in
/// blocks of rows, since every place queries them.
class CalcMergedCells {
  public:
    CalcMergedCells(OfficeConnection& connection, const Reference<css::sheet::XSpreadsheet>& sheet)
        : connection_(connection), sheet_(sheet) {}

    /// Returns true if the sheet has any.
    [[nodiscard]] bool exist();
    /// Returns true if any of the cells is merged.
    [[nodiscard]] bool existIn(const excel::CellArea& area);
    /// Returns the merged area that contains the cell; the cell itself if it is not merged.
    [[nodiscard]] excel::CellArea at(const excel::CellPosition& cell);

  private:
    [[nodiscard]] excel::CellArea extended(const excel::CellArea& area);
    [[nodiscard]] bool existInBlock(int row);

    OfficeConnection& connection_;
    Reference<css::sheet::XSpreadsheet> sheet_;
    std::optional<bool> exist_;
    std::unordered_map<int, bool> blocks_;
    std::map<excel::CellPosition, excel::CellArea> known_;
};

/// One sheet of cells. Properties that do not change while the object model works with the document (merged
/// cells, protection, formulas) are read once and cached.
class CalcSheet {
  public:
    CalcSheet(OfficeConnection& connection, CalcPendingEdits& pending,
              const Reference<css::sheet::XSpreadsheet>& sheet, std::string name,
              const excel::CellPosition& activeCell);

    [[nodiscard]] const Reference<css::sheet::XSpreadsheet>& uno() const { return sheet_; }
    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] bool isHidden();
    /// Returns false for sheets that have no cells in the file, although Calc has cells in all sheets.
    [[nodiscard]] bool hasCells() const { return kind_ == CalcSheetKind::Worksheet; }
    void setKind(CalcSheetKind kind) { kind_ = kind; }

    [[nodiscard]] const excel::CellSelection& selection() const { return selection_; }
    void select(const excel::CellSelection& selection) { selection_ = selection; }

    [[nodiscard]] CalcShapeTable& shapes();

    [[nodiscard]] CalcMergedCells& merged() { return merged_; }

    [[nodiscard]] bool isProtected();
    /// Raises kApplicationDefined, with a sentence, if the sheet is protected.
    void checkMayChange(const char* what);
    /// Raises kApplicationDefined, with a sentence that says why, for cells that must not be written.
    void checkMayWrite(const excel::CellArea& area);

    /// Return cells after pending changes were written. Must run within a call.
    [[nodiscard]] Reference<css::table::XCell> cell(const excel::CellPosition& cell) const;
    [[nodiscard]] Reference<css::table::XCellRange> range(const excel::CellArea& area) const;

  private:
    [[nodiscard]] bool isLocked(const excel::CellArea& area);
    [[nodiscard]] bool hasArray(const excel::CellArea& area);
    [[nodiscard]] bool hasPivotTable(const excel::CellArea& area);
    [[nodiscard]] const std::vector<excel::CellArea>& formulas();
    [[nodiscard]] const std::vector<excel::CellArea>& pivotTables();

    OfficeConnection& connection_;
    CalcPendingEdits& pending_;
    Reference<css::sheet::XSpreadsheet> sheet_;
    std::string name_;
    CalcSheetKind kind_ = CalcSheetKind::Worksheet;
    excel::CellSelection selection_;
    CalcMergedCells merged_;
    std::optional<CalcShapeTable> shapes_;
    std::optional<bool> isProtected_;
    std::optional<std::vector<excel::CellArea>> formulas_;
    std::optional<std::vector<excel::CellArea>> pivotTables_;
};

}  // namespace mergeloom::libreoffice
