#pragma once

#include "office/libreoffice/excel/CalcContent.h"
#include "office/model/excel/Range.h"

#include <cstddef>
#include <string>
#include <utility>

namespace mergeloom::libreoffice {

class CalcRange final : public excel::Range {
  public:
    /// The area must be within the sheet.
    CalcRange(CalcContentPtr content, std::size_t sheet, const excel::CellArea& area)
        : content_(std::move(content)), sheet_(sheet), area_(area) {}

    excel::WorksheetPtr Worksheet() override;
    int Row() override { return area_.first.row; }
    int Column() override { return area_.first.column; }
    excel::CountedPtr Rows() override;
    excel::ColumnsPtr Columns() override;
    std::string AddressLocal() override { return absoluteAddressOf(area_); }

    excel::RangePtr Cells(int row, int column) override;
    excel::RangePtr Resize(int rowSize, int columnSize) override;
    excel::RangePtr Offset(int rowOffset, int columnOffset) override;
    excel::RangePtr MergeArea() override;
    bool MergeCells() override { return sheet().merged().existIn(area_); }

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
    [[nodiscard]] excel::RangePtr block(const excel::CellArea& area) const;

    CalcContentPtr content_;
    std::size_t sheet_;
    excel::CellArea area_;
};

/// Returns the range of an area. Raises kApplicationDefined if the area exceeds the sheet.
excel::RangePtr calcRangeOf(const CalcContentPtr& content, std::size_t sheet, const excel::CellArea& area);

}  // namespace mergeloom::libreoffice
