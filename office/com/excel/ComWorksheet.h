#pragma once

#include "office/com/excel/ComExcelModel.h"
#include "office/model/excel/Worksheet.h"

#include <string>
#include <utility>

namespace mergeloom::com {

/// A sheet of an installed Excel.
class ComWorksheet final : public excel::Worksheet {
  public:
    ComWorksheet(ComExcelModelPtr model, AutomationObject sheet)
        : model_(std::move(model)), sheet_(std::move(sheet)) {}

    std::string Name() override { return sheet_.get("Name").text(); }
    excel::RangePtr Cells(int row, int column) override;
    excel::RangePtr Range(const std::string& address) override;
    excel::RangePtr UsedRange() override;
    excel::ShapesPtr Shapes() override;
    excel::PicturesPtr Pictures() override;
    void Activate() override { model_->activate(sheet_); }

  private:
    ComExcelModelPtr model_;
    AutomationObject sheet_;
};

/// Returns the sheets with cells of a workbook.
excel::WorksheetsPtr makeWorksheets(const ComExcelModelPtr& model, const AutomationObject& workbook);

}  // namespace mergeloom::com
