#pragma once

#include "office/libreoffice/excel/CalcContent.h"
#include "office/model/excel/Worksheet.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

class CalcWorksheet final : public excel::Worksheet {
  public:
    CalcWorksheet(CalcContentPtr content, std::size_t sheet) : content_(std::move(content)), sheet_(sheet) {}

    std::string Name() override { return content_->sheet(sheet_).name(); }
    excel::RangePtr Cells(int row, int column) override;
    excel::RangePtr Range(const std::string& address) override;
    excel::RangePtr UsedRange() override;
    excel::ShapesPtr Shapes() override;
    excel::PicturesPtr Pictures() override;
    void Activate() override { content_->activate(sheet_); }

  private:
    CalcContentPtr content_;
    std::size_t sheet_;
};

/// The sheets with cells.
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
