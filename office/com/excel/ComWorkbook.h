#pragma once

#include "office/com/excel/ComExcelModel.h"
#include "office/model/excel/Workbook.h"

#include <memory>
#include <string>
#include <utility>

namespace mergeloom::com {

class ComExcelApplication;

/// A workbook of an installed Excel. It has no steps for Undo: Excel records none for calls of other
/// programs.
class ComWorkbook final : public excel::Workbook {
  public:
    ComWorkbook(std::weak_ptr<ComExcelApplication> owner, ComExcelModelPtr model, AutomationObject workbook)
        : owner_(std::move(owner)), model_(std::move(model)), workbook_(std::move(workbook)) {}

    excel::ApplicationPtr Application() override;
    excel::NamesPtr Names() override;
    excel::WorksheetsPtr Worksheets() override;

    std::string Name() override { return workbook_.get("Name").text(); }
    std::string FullName() override { return workbook_.get("FullName").text(); }
    bool Saved() override { return workbook_.get("Saved").truth(); }
    void SetSaved(bool saved) override { workbook_.put("Saved", saved); }
    void Save() override;
    void SaveAs(const std::string& fileName, excel::XlFileFormat format) override;
    void Close(excel::SaveChanges saveChanges) override;
    bool Undo(int /*times*/) override { return false; }

  private:
    std::weak_ptr<ComExcelApplication> owner_;
    ComExcelModelPtr model_;
    AutomationObject workbook_;
    excel::NamesPtr names_;  ///< since their first use
    bool isClosed_ = false;
};

}  // namespace mergeloom::com
