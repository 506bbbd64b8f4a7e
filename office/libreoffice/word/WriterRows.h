#pragma once

#include "office/libreoffice/word/WriterCells.h"
#include "office/model/word/Rows.h"

#include <utility>

namespace mergeloom::libreoffice {

class WriterRows final : public word::Rows {
  public:
    explicit WriterRows(StoryTable table) : table_(std::move(table)) {}

    int Count() override;
    word::RowPtr Item(int number) override;
    word::RowPtr Add() override;

  private:
    StoryTable table_;
};

}  // namespace mergeloom::libreoffice
