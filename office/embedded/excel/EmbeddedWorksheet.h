#pragma once

#include "office/embedded/excel/WorkbookContent.h"
#include "office/model/excel/Worksheet.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

class EmbeddedWorksheet final : public excel::Worksheet {
  public:
    /// The index must be that of a sheet with cells.
    EmbeddedWorksheet(std::shared_ptr<WorkbookContent> content, std::size_t sheet)
        : content_(std::move(content)), sheet_(sheet) {}

    std::string Name() override { return content_->workbook().sheets()[sheet_].name; }
    excel::RangePtr Cells(int row, int column) override;
    excel::RangePtr Range(const std::string& address) override;
    excel::RangePtr UsedRange() override;
    excel::ShapesPtr Shapes() override;
    excel::PicturesPtr Pictures() override;
    void Activate() override { content_->activate(sheet_); }

  private:
    std::shared_ptr<WorkbookContent> content_;
    std::size_t sheet_;
};

class EmbeddedWorksheets final : public excel::Worksheets {
  public:
    explicit EmbeddedWorksheets(std::shared_ptr<WorkbookContent> content);

    int Count() override { return static_cast<int>(sheets_.size()); }
    excel::WorksheetPtr Item(int number) override;
    excel::WorksheetPtr Item(const std::string& name) override;

  private:
    std::shared_ptr<WorkbookContent> content_;
    std::vector<std::size_t> sheets_;
};

}  // namespace mergeloom::embedded
