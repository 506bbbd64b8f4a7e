#pragma once

#include "office/embedded/excel/WorkbookContent.h"
#include "office/model/excel/DefinedName.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

namespace mergeloom::embedded {

class EmbeddedDefinedName final : public excel::DefinedName {
  public:
    EmbeddedDefinedName(std::shared_ptr<WorkbookContent> content, std::size_t index)
        : content_(std::move(content)), index_(index) {}

    std::string Name() override;
    bool Visible() override { return !entry().hidden; }
    std::string RefersToLocal() override { return "=" + entry().formula; }
    void SetRefersToLocal(const std::string& formula) override;
    excel::RangePtr RefersToRange() override;

  private:
    [[nodiscard]] DefinedNames::Entry entry() const { return content_->workbook().names().at(index_); }

    std::shared_ptr<WorkbookContent> content_;
    std::size_t index_;
};

}  // namespace mergeloom::embedded
