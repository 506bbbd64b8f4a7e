#pragma once

#include "office/embedded/excel/SheetSizes.h"
#include "office/model/excel/Columns.h"

#include <cstddef>
#include <memory>
#include <utility>

namespace mergeloom::embedded {

class EmbeddedColumns final : public excel::Columns {
  public:
    EmbeddedColumns(std::shared_ptr<WorkbookContent> content, std::size_t sheet, const excel::CellArea& area)
        : content_(std::move(content)), sheet_(sheet), area_(area) {}

    int Count() override { return area_.columns(); }
    void AutoFit() override { fitColumns(*content_, sheet_, area_); }

  private:
    std::shared_ptr<WorkbookContent> content_;
    std::size_t sheet_;
    excel::CellArea area_;
};

}  // namespace mergeloom::embedded
