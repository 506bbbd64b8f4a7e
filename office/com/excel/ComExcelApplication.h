#pragma once

#include "office/com/automation/OwnDocuments.h"
#include "office/com/excel/ComExcelModel.h"
#include "office/com/excel/ComWorkbook.h"
#include "office/model/excel/Application.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mergeloom::com {

/// An Excel that was started here. Its workbooks are those that are opened through it: others, such as one
/// that the user opens meanwhile, are neither counted nor closed.
class ComExcelApplication final : public excel::Application,
                                  public std::enable_shared_from_this<ComExcelApplication> {
  public:
    explicit ComExcelApplication(ComExcelModelPtr model) : model_(std::move(model)) {}
    /// Ends Excel, unsaved, if Quit was not called.
    ~ComExcelApplication() override;

    std::string Name() override { return app().get("Name").text(); }
    std::string Version() override { return app().get("Version").text(); }
    excel::WorkbooksPtr Workbooks() override;
    excel::RangePtr ActiveCell() override;
    excel::SelectionPtr Selection() override;
    excel::RangePtr Intersect(excel::Range& first, excel::Range& second) override;
    excel::UndoRecordPtr UndoRecord() override;
    bool canSaveAs(excel::XlFileFormat format) override;
    void Quit() override;

    /// Keeps Excel from showing dialogs and from running macros.
    void setUp();
    [[nodiscard]] const std::vector<std::shared_ptr<ComWorkbook>>& documents() const {
        return workbooks_.all();
    }
    excel::WorkbookPtr add(const std::string& templatePath);
    excel::WorkbookPtr open(const std::string& fileName);
    void remove(const ComWorkbook& workbook);

  private:
    [[nodiscard]] const AutomationObject& app() const { return model_->application(); }
    /// Returns the active cell; none if the active sheet has no cells. Raises kNotAvailable without a
    /// workbook.
    std::optional<SheetArea> activeCell();
    excel::WorkbookPtr list(const AutomationObject& workbook);
    /// Ends Excel, or leaves it to the user if it has workbooks of theirs.
    void end();

    ComExcelModelPtr model_;
    OwnDocuments<ComWorkbook> workbooks_;
    bool hasQuit_ = false;
};

}  // namespace mergeloom::com
