#pragma once

#include "office/libreoffice/session/OfficeConnection.h"
#include "office/model/excel/CellAddress.h"

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
    [[nodiscard]] bool existIn(const excel::CellArea& area);
    /// The merged cells that hold the cell; the cell itself where it is not merged.
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

}  // namespace mergeloom::libreoffice
