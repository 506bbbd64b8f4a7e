#include "office/embedded/excel/EmbeddedSheetSelection.h"

#include "base/AutomationError.h"

#include <cstddef>
#include <string>
#include <utility>

namespace mergeloom::embedded {

namespace {

class SelectedCells final : public excel::Selection {
  public:
    SelectedCells(std::shared_ptr<WorkbookContent> content, std::size_t sheet)
        : content_(std::move(content)), sheet_(sheet) {}

    std::string TypeName() override { return "Range"; }
    void SetValue2(const std::string& text) override {
        for (const excel::CellArea& area : content_->sheet(sheet_).selection().areas)
            content_->fill(sheet_, area, text);
    }

  private:
    std::shared_ptr<WorkbookContent> content_;
    std::size_t sheet_;
};

class SelectedChart final : public excel::Selection {
  public:
    std::string TypeName() override { return "ChartArea"; }
    void SetValue2(const std::string&) override {
        throw AutomationError(kApplicationDefined, "The active sheet has no cells.");
    }
};

}  // namespace

excel::SelectionPtr selectionOf(const std::shared_ptr<WorkbookContent>& content) {
    if (!content->isWorksheetActive()) return std::make_shared<SelectedChart>();
    return std::make_shared<SelectedCells>(content, content->activeWorksheet());
}

}  // namespace mergeloom::embedded
