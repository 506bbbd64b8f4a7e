#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Table.h"

#include <memory>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

class WriterTables final : public word::Tables {
  public:
    WriterTables(std::shared_ptr<WriterContent> content, const LiveStretch& stretch);

    int Count() override { return static_cast<int>(tables_.size()); }
    word::TablePtr Item(int number) override;
    word::TablePtr Add(word::Range& range, int rows, int columns) override;

  private:
    std::shared_ptr<WriterContent> content_;
    WriterStory* story_;
    std::vector<TablePtr> tables_;
};

}  // namespace mergeloom::libreoffice
