#pragma once

#include "base/AutomationError.h"
#include "office/libreoffice/word/TableInserter.h"
#include "office/libreoffice/word/WriterCells.h"
#include "office/model/word/Table.h"

#include <memory>
#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

class WriterRow final : public word::Row {
  public:
    WriterRow(TablePlace place, std::size_t row) : place_(std::move(place)), row_(row) {}

    word::CellsPtr Cells() override {
        const std::size_t columns = place_.get().rows.at(row_).size();
        std::vector<CellPlace> cells;
        cells.reserve(columns);
        for (std::size_t column = 0; column < columns; ++column)
            cells.push_back({row_, column});
        return std::make_shared<WriterCells>(place_, std::move(cells));
    }

  private:
    TablePlace place_;
    std::size_t row_;
};

class WriterRows final : public word::Rows {
  public:
    explicit WriterRows(TablePlace place) : place_(std::move(place)) {}

    int Count() override { return static_cast<int>(place_.get().rows.size()); }
    word::RowPtr Item(int number) override {
        if (number < 1 || number > Count()) throw AutomationError(kMemberNotFound, "There is no such row.");
        return std::make_shared<WriterRow>(place_, static_cast<std::size_t>(number) - 1);
    }
    word::RowPtr Add() override {
        MappedTable& table = place_.get();
        place_.content->call([&] { TableInserter(*place_.content).appendRow(*place_.story, table); });
        return Item(Count());
    }

  private:
    TablePlace place_;
};

}  // namespace mergeloom::libreoffice
