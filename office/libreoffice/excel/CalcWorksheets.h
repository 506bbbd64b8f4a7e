#pragma once

#include "office/libreoffice/excel/CalcContent.h"
#include "office/model/excel/Worksheets.h"

#include <cstddef>
#include <string>
#include <vector>

namespace mergeloom::libreoffice {

/// The sheets that have cells.
class CalcWorksheets final : public excel::Worksheets {
  public:
    explicit CalcWorksheets(CalcContentPtr content);

    int Count() override { return static_cast<int>(sheets_.size()); }
    excel::WorksheetPtr Item(int number) override;
    excel::WorksheetPtr Item(const std::string& name) override;

  private:
    CalcContentPtr content_;
    std::vector<std::size_t> sheets_;
};

}  // namespace mergeloom::libreoffice
