#pragma once

#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Table.h"

#include <memory>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// A table of a story.
struct TablePlace {
    std::shared_ptr<WriterContent> content;
    WriterStory* story = nullptr;
    TablePtr table;

    /// Raises kObjectDeleted once the table is gone.
    [[nodiscard]] MappedTable& get() const;
};

class WriterCell final : public word::Cell {
  public:
    WriterCell(TablePlace place, CellPlace cell) : place_(std::move(place)), cell_(cell) {}

    word::RangePtr Range() override;
    int ColumnIndex() override { return static_cast<int>(cell_.column) + 1; }
    int RowIndex() override { return static_cast<int>(cell_.row) + 1; }
    void Select() override;

  private:
    TablePlace place_;
    CellPlace cell_;
};

class WriterCells final : public word::Cells {
  public:
    WriterCells(TablePlace place, std::vector<CellPlace> cells)
        : place_(std::move(place)), cells_(std::move(cells)) {}

    int Count() override { return static_cast<int>(cells_.size()); }
    word::CellPtr Item(int number) override;

  private:
    TablePlace place_;
    std::vector<CellPlace> cells_;
};

/// The cells that the stretch touches. Raises kMemberNotFound outside tables.
word::CellsPtr cellsOf(const std::shared_ptr<WriterContent>& content, const LiveStretch& stretch);

}  // namespace mergeloom::libreoffice
