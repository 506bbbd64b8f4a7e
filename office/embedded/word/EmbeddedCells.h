#pragma once

#include "office/embedded/word/EmbeddedTable.h"
#include "office/model/word/Table.h"

#include <memory>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

class EmbeddedCell final : public word::Cell {
  public:
    EmbeddedCell(std::shared_ptr<EmbeddedTable> table, pugi::xml_node cell)
        : table_(std::move(table)), cell_(cell) {}

    word::RangePtr Range() override { return table_->rangeOf(cell_); }
    int ColumnIndex() override;
    int RowIndex() override;
    void Select() override;

  private:
    std::shared_ptr<EmbeddedTable> table_;
    pugi::xml_node cell_;
};

class EmbeddedCells final : public word::Cells {
  public:
    EmbeddedCells(std::shared_ptr<EmbeddedTable> table, std::vector<pugi::xml_node> cells)
        : table_(std::move(table)), cells_(std::move(cells)) {}

    int Count() override { return static_cast<int>(cells_.size()); }
    word::CellPtr Item(int number) override;

  private:
    std::shared_ptr<EmbeddedTable> table_;
    std::vector<pugi::xml_node> cells_;
};

}  // namespace mergeloom::embedded
