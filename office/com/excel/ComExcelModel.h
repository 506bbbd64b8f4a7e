#pragma once

#include "office/com/automation/AutomationObject.h"
#include "office/model/excel/CellAddress.h"

#include <deque>
#include <memory>
#include <optional>
#include <utility>

namespace mergeloom::com {

/// An area of cells of a sheet.
struct SheetArea {
    AutomationObject sheet;
    excel::CellArea area;
};

/// The shared state of the objects of one running Excel: its application, and values that need no further
/// call. They remain valid because only this program uses a hidden Excel: the active cell is the last one
/// that was set here, and no other cells are merged.
class ComExcelModel {
  public:
    explicit ComExcelModel(AutomationObject application) : application_(std::move(application)) {}
    ComExcelModel(const ComExcelModel&) = delete;
    ComExcelModel& operator=(const ComExcelModel&) = delete;

    [[nodiscard]] const AutomationObject& application() const { return application_; }
    [[nodiscard]] const SessionPtr& session() const { return application_.session(); }

    /// Returns Excel's range of an area. The ranges of the most recent areas are kept.
    AutomationObject rangeOf(const SheetArea& area);
    /// Returns the merged cells that a cell belongs to, or the cell. Raises kApplicationDefined for a cell
    /// outside of the sheet.
    excel::CellArea mergeAreaOf(const AutomationObject& sheet, const excel::CellPosition& cell);

    /// Makes the sheet active unless it is already.
    void activate(const AutomationObject& sheet);
    /// Must be called after a cell was made active, or the cells of an area were selected.
    void setActive(const SheetArea& area) { active_ = area; }
    /// Returns the active cell; none if it is unknown.
    std::optional<SheetArea> activeCell();
    void forgetActiveCell() { active_.reset(); }
    /// Must be called after a workbook was opened or closed.
    void forget();

  private:
    struct UsedArea {
        SheetArea place;
        AutomationObject range;
        std::optional<excel::CellArea> merged{};
    };

    UsedArea& use(const SheetArea& area);

    AutomationObject application_;
    std::deque<UsedArea> used_;
    std::optional<SheetArea> active_;
};

using ComExcelModelPtr = std::shared_ptr<ComExcelModel>;

/// Returns the area of one of Excel's ranges. Raises kApplicationDefined for several areas.
excel::CellArea areaOf(const AutomationObject& range);

}  // namespace mergeloom::com
