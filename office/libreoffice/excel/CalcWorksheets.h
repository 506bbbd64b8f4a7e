#pragma once

#include "office/libreoffice/excel/CalcContent.h"
#include "office/model/excel/Worksheets.h"

#include <string>
#include <utility>

namespace mergeloom::libreoffice {

/// Calc makes a sheet with cells of a chart sheet, too.
class CalcWorksheets final : public excel::Worksheets {
  public:
    explicit CalcWorksheets(CalcContentPtr content) : content_(std::move(content)) {}

    int Count() override { return static_cast<int>(content_->sheetCount()); }
    excel::WorksheetPtr Item(int number) override;
    excel::WorksheetPtr Item(const std::string& name) override;

  private:
    CalcContentPtr content_;
};

}  // namespace mergeloom::libreoffice
