#pragma once

#include "office/libreoffice/excel/CalcSizes.h"
#include "office/model/excel/Columns.h"

#include <cstddef>
#include <utility>

namespace mergeloom::libreoffice {

class CalcColumns final : public excel::Columns {
  public:
    CalcColumns(CalcContentPtr content, std::size_t sheet, const excel::CellArea& area)
        : content_(std::move(content)), sheet_(sheet), area_(area) {}

    int Count() override { return area_.columns(); }
    void AutoFit() override { fitColumns(*content_, sheet_, area_); }

  private:
    CalcContentPtr content_;
    std::size_t sheet_;
    excel::CellArea area_;
};

}  // namespace mergeloom::libreoffice
