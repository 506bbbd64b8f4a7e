#pragma once

#include "office/com/automation/AutomationObject.h"
#include "office/model/excel/Worksheet.h"

#include <string>
#include <utility>

namespace mergeloom::com {

/// A sheet of an installed Excel.
class ComWorksheet final : public excel::Worksheet {
  public:
    ComWorksheet(AutomationObject application, AutomationObject sheet)
        : application_(std::move(application)), sheet_(std::move(sheet)) {}

    std::string Name() override { return sheet_.get("Name").text(); }
    excel::RangePtr Cells(int row, int column) override;
    excel::RangePtr Range(const std::string& address) override;
    excel::RangePtr UsedRange() override;
    excel::ShapesPtr Shapes() override;
    excel::PicturesPtr Pictures() override;
    void Activate() override { sheet_.call("Activate"); }

  private:
    AutomationObject application_;
    AutomationObject sheet_;
};

/// Returns the sheets with cells of a workbook.
excel::WorksheetsPtr makeWorksheets(const AutomationObject& application, const AutomationObject& workbook);

}  // namespace mergeloom::com
