#pragma once

#include "office/com/excel/ComExcelModel.h"
#include "office/model/excel/AreaRange.h"

#include <string>

namespace mergeloom::com {

/// An area of cells of an installed Excel, which is known by its place.
class ComCellRange final : public excel::AreaRange {
  public:
    ComCellRange(ComExcelModelPtr model, AutomationObject sheet, const excel::CellArea& area)
        : AreaRange(area), model_(std::move(model)), sheet_(std::move(sheet)) {}

    excel::WorksheetPtr Worksheet() override;
    excel::ColumnsPtr Columns() override;
    excel::RangePtr MergeArea() override;
    bool MergeCells() override;
    std::string Value() override;
    void SetValue(const std::string& text) override;
    void Select() override;
    void Activate() override;
    mergeloom::ColumnWidth ColumnWidth() override { return {first().get("ColumnWidth").real()}; }
    void SetColumnWidth(mergeloom::ColumnWidth width) override { cells().put("ColumnWidth", width.value); }
    Points RowHeight() override { return {first().get("RowHeight").real()}; }
    void SetRowHeight(Points height) override { cells().put("RowHeight", height.value); }
    Points Left() override { return {cells().get("Left").real()}; }
    Points Top() override { return {cells().get("Top").real()}; }
    Points Width() override { return {cells().get("Width").real()}; }
    Points Height() override { return {cells().get("Height").real()}; }

  private:
    [[nodiscard]] excel::RangePtr rangeAt(const excel::CellArea& area) const override;
    [[nodiscard]] AutomationObject cells() const;
    /// Returns Excel's range of the first cell: properties of several cells have a value only if it is the
    /// same for all.
    [[nodiscard]] AutomationObject first() const;

    ComExcelModelPtr model_;
    AutomationObject sheet_;
};

/// Returns the area of one of Excel's ranges. Raises kApplicationDefined for several areas.
excel::RangePtr rangeOf(const ComExcelModelPtr& model, const AutomationObject& range);

/// Returns a text in a form that Excel reads as a text and never as a number or a formula. Raises
/// kApplicationDefined for one that is too long for a cell.
Value textValue(const std::string& text);

}  // namespace mergeloom::com
