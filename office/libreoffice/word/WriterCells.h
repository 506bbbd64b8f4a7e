#pragma once

#include "office/libreoffice/word/TableCells.h"
#include "office/libreoffice/word/WriterContent.h"
#include "office/model/word/Cell.h"
#include "office/model/word/Cells.h"

#include <memory>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

/// A table of a story.
struct StoryTable {
    std::shared_ptr<WriterContent> content;
    TextReference story;
    TableReference table;

    /// Raises kObjectDeleted once the table is gone.
    [[nodiscard]] const TableReference& get() const;
};

class WriterCell final : public word::Cell {
  public:
    WriterCell(StoryTable table, OUString name, CellPlace place)
        : table_(std::move(table)), name_(std::move(name)), place_(place) {}

    word::RangePtr Range() override;
    int ColumnIndex() override { return static_cast<int>(place_.column) + 1; }
    int RowIndex() override { return static_cast<int>(place_.row) + 1; }
    void Select() override;

  private:
    [[nodiscard]] TrackedRange range() const;

    StoryTable table_;
    OUString name_;
    CellPlace place_;
};

class WriterCells final : public word::Cells {
  public:
    WriterCells(StoryTable table, const std::vector<RowOfCells>& rows, CellPlace first, CellPlace last);

    int Count() override { return static_cast<int>(cells_.size()); }
    word::CellPtr Item(int number) override;

  private:
    StoryTable table_;
    std::vector<std::pair<OUString, CellPlace>> cells_;
};

/// The cells that the range touches. Raises kMemberNotFound outside tables.
word::CellsPtr cellsOf(const std::shared_ptr<WriterContent>& content, const TrackedRange& range);

}  // namespace mergeloom::libreoffice
