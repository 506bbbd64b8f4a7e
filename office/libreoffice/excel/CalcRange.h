#pragma once

#include "office/libreoffice/excel/CalcContent.h"
#include "office/model/excel/AreaRange.h"

#include <cstddef>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

class CalcRange final : public excel::AreaRange {
  public:
    /// Raises kApplicationDefined if the area exceeds the sheet.
    CalcRange(CalcContentPtr content, std::size_t sheet, const excel::CellArea& area)
        : AreaRange(area), content_(std::move(content)), sheet_(sheet) {}

    excel::WorksheetPtr Worksheet() override;
    excel::ColumnsPtr Columns() override;

    excel::RangePtr MergeArea() override;
    bool MergeCells() override { return sheet().merged().existIn(area()); }

    std::string Value() override;
    void SetValue(const std::string& text) override;

    void Select() override;
    void Activate() override;

    mergeloom::ColumnWidth ColumnWidth() override;
    void SetColumnWidth(mergeloom::ColumnWidth width) override;
    Points RowHeight() override;
    void SetRowHeight(Points height) override;

    Points Left() override;
    Points Top() override;
    Points Width() override;
    Points Height() override;

  private:
    [[nodiscard]] CalcSheet& sheet() const { return content_->sheet(sheet_); }
    [[nodiscard]] excel::RangePtr rangeAt(const excel::CellArea& area) const override;

    CalcContentPtr content_;
    std::size_t sheet_;
};

/// Returns the range of an area. Raises kApplicationDefined if the area exceeds the sheet.
excel::RangePtr calcRangeOf(const CalcContentPtr& content, std::size_t sheet, const excel::CellArea& area);

}  // namespace mergeloom::libreoffice
