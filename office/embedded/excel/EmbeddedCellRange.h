#pragma once

#include "office/embedded/excel/WorkbookContent.h"
#include "office/model/excel/CellAddress.h"
#include "office/model/excel/Range.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

namespace mergeloom::embedded {

class EmbeddedCellRange final : public excel::Range {
  public:
    /// The area must be within the sheet.
    EmbeddedCellRange(std::shared_ptr<WorkbookContent> content, std::size_t sheet,
                      const excel::CellArea& area)
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
    bool MergeCells() override { return sheet().merged().touches(area_); }

    std::string Value() override { return content_->textOf(sheet_, area_.first); }
    void SetValue(const std::string& text) override;

    void Select() override;
    void Activate() override;

    mergeloom::ColumnWidth ColumnWidth() override { return geometry().columnWidth(area_.first.column); }
    void SetColumnWidth(mergeloom::ColumnWidth width) override;
    Points RowHeight() override { return geometry().rowHeight(area_.first.row); }
    void SetRowHeight(Points height) override;

    Points Left() override { return geometry().left(area_.first.column); }
    Points Top() override { return geometry().top(area_.first.row); }
    Points Width() override;
    Points Height() override;

  private:
    [[nodiscard]] SheetContent& sheet() const { return content_->sheet(sheet_); }
    [[nodiscard]] SheetGeometry& geometry() const { return sheet().geometry(); }
    [[nodiscard]] excel::RangePtr block(const excel::CellArea& area) const;

    std::shared_ptr<WorkbookContent> content_;
    std::size_t sheet_;
    excel::CellArea area_;
};

/// Returns the range of an area. Raises kApplicationDefined if the area exceeds the sheet.
excel::RangePtr rangeOf(const std::shared_ptr<WorkbookContent>& content, std::size_t sheet,
                        const excel::CellArea& area);

}  // namespace mergeloom::embedded
