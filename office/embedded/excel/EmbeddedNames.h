#pragma once

#include "office/embedded/excel/WorkbookContent.h"
#include "office/model/excel/Names.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace mergeloom::embedded {

/// The defined names of a workbook, numbered in the order of the workbook's list.
class EmbeddedNames final : public excel::Names {
  public:
    explicit EmbeddedNames(std::shared_ptr<WorkbookContent> content) : content_(std::move(content)) {}

    int Count() override { return static_cast<int>(names().count()); }
    excel::DefinedNamePtr Item(int number) override;
    excel::DefinedNamePtr Item(const std::string& name) override;
    bool Exists(const std::string& name) override;
    excel::DefinedNamePtr Add(const std::string& name, const std::string& refersToLocal) override;
    std::int64_t firstFreeCounter(const std::string& stem) override;

  private:
    [[nodiscard]] DefinedNames& names() const { return content_->workbook().names(); }
    [[nodiscard]] std::optional<std::size_t> find(const std::string& name) const;

    std::shared_ptr<WorkbookContent> content_;
};

}  // namespace mergeloom::embedded
