#pragma once

#include "office/embedded/excel/WorkbookContent.h"
#include "office/model/excel/AreaRange.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

namespace mergeloom::embedded {

class EmbeddedCellRange final : public excel::AreaRange {
  public:
    /// Raises kApplicationDefined if the area exceeds the sheet.
    EmbeddedCellRange(std::shared_ptr<WorkbookContent> content, std::size_t sheet,
                      const excel::CellArea& area)
        : AreaRange(area), content_(std::move(content)), sheet_(sheet) {}

    excel::WorksheetPtr Worksheet() override;
    excel::ColumnsPtr Columns() override;
    excel::RangePtr MergeArea() override;
    bool MergeCells() override { return sheet().merged().touches(area()); }

    std::string Value() override { return content_->textOf(sheet_, area().first); }
    void SetValue(const std::string& text) override;

    void Select() override;
    void Activate() override;

    mergeloom::ColumnWidth ColumnWidth() override { return geometry().columnWidth(area().first.column); }
    void SetColumnWidth(mergeloom::ColumnWidth width) override;
    Points RowHeight() override { return geometry().rowHeight(area().first.row); }
    void SetRowHeight(Points height) override;

    Points Left() override { return geometry().left(area().first.column); }
    Points Top() override { return geometry().top(area().first.row); }
    Points Width() override;
    Points Height() override;

  private:
    [[nodiscard]] SheetContent& sheet() const { return content_->sheet(sheet_); }
    [[nodiscard]] SheetGeometry& geometry() const { return sheet().geometry(); }
    [[nodiscard]] excel::RangePtr rangeAt(const excel::CellArea& area) const override;

    std::shared_ptr<WorkbookContent> content_;
    std::size_t sheet_;
};

/// Returns the range of an area. Raises kApplicationDefined if the area exceeds the sheet.
excel::RangePtr rangeOf(const std::shared_ptr<WorkbookContent>& content, std::size_t sheet,
                        const excel::CellArea& area);

}  // namespace mergeloom::embedded
