#pragma once

#include "office/libreoffice/excel/CalcArea.h"
#include "office/libreoffice/session/OfficeConnection.h"

#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

namespace mergeloom::libreoffice {

/// The merged cells of a sheet, which nobody changes while the document is open. Asked for in blocks of rows,
/// since the question is put for each place.
class CalcMergedCells {
  public:
    CalcMergedCells(OfficeConnection& connection, const Reference<css::sheet::XSpreadsheet>& sheet)
        : connection_(connection), sheet_(sheet) {}

    /// Whether the sheet has any.
    [[nodiscard]] bool exist();
    /// Whether any of the cells is merged.
    [[nodiscard]] bool existIn(const CalcArea& area);
    /// The merged cells that hold the cell; the cell itself where it is not merged.
    [[nodiscard]] CalcArea at(const CalcCell& cell);

  private:
    [[nodiscard]] CalcArea extended(const CalcArea& area);
    [[nodiscard]] bool existInBlock(int row);

    OfficeConnection& connection_;
    Reference<css::sheet::XSpreadsheet> sheet_;
    std::optional<bool> exist_;
    std::unordered_map<int, bool> blocks_;
    std::map<CalcCell, CalcArea> known_;
};

}  // namespace mergeloom::libreoffice
