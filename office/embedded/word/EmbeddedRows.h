#pragma once

#include "office/embedded/text/TableElements.h"
#include "office/embedded/word/EmbeddedCells.h"
#include "office/embedded/word/EmbeddedTable.h"
#include "office/model/word/Table.h"

#include <memory>
#include <utility>
#include <vector>

namespace mergeloom::embedded {

class EmbeddedRow final : public word::Row {
  public:
    EmbeddedRow(std::shared_ptr<EmbeddedTable> table, pugi::xml_node row)
        : table_(std::move(table)), row_(row) {}

    word::CellsPtr Cells() override {
        return std::make_shared<EmbeddedCells>(table_, cellsOf(row_, table_->names()));
    }

  private:
    std::shared_ptr<EmbeddedTable> table_;
    pugi::xml_node row_;
};

class EmbeddedRows final : public word::Rows {
  public:
    explicit EmbeddedRows(std::shared_ptr<EmbeddedTable> table) : table_(std::move(table)) {}

    int Count() override { return static_cast<int>(rows().size()); }
    word::RowPtr Item(int number) override {
        return std::make_shared<EmbeddedRow>(table_, rows()[indexOf(number)]);
    }
    word::RowPtr Add() override {
        table_->appendRow();
        return Item(Count());
    }

  private:
    [[nodiscard]] std::vector<pugi::xml_node> rows() const {
        return rowsOf(table_->element(), table_->names());
    }

    std::shared_ptr<EmbeddedTable> table_;
};

}  // namespace mergeloom::embedded
