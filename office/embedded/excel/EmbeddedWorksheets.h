#pragma once

#include "office/embedded/excel/WorkbookContent.h"
#include "office/model/excel/Worksheets.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace mergeloom::embedded {

class EmbeddedWorksheets final : public excel::Worksheets {
  public:
    explicit EmbeddedWorksheets(std::shared_ptr<WorkbookContent> content);

    int Count() override { return static_cast<int>(sheets_.size()); }
    excel::WorksheetPtr Item(int number) override;
    excel::WorksheetPtr Item(const std::string& name) override;

  private:
    std::shared_ptr<WorkbookContent> content_;
    std::vector<std::size_t> sheets_;
};

}  // namespace mergeloom::embedded
