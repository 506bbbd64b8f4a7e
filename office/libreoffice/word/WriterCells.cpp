#include "office/libreoffice/word/WriterCells.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/StoryOrder.h"
#include "office/libreoffice/word/TableCells.h"
#include "office/libreoffice/word/WriterRange.h"

#include <utility>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

class WriterCell final : public word::Cell {
  public:
    WriterCell(StoryTable table, const OUString& name, CellPlace place)
        : table_(std::move(table)), name_(name), place_(place) {}

    word::RangePtr Range() override {
        return table_.content->call([&] { return makeRange(table_.content, range()); });
    }
    int ColumnIndex() override { return static_cast<int>(place_.column) + 1; }
    int RowIndex() override { return static_cast<int>(place_.row) + 1; }
    void Select() override {
        table_.content->call([&] { table_.content->select(range()); });
    }

  private:
    [[nodiscard]] TrackedRange range() const {
        return {table_.story, cursorOverCell(cellText(table_.get(), name_)), Beyond::Nothing,
                Beyond::CellMark};
    }

    StoryTable table_;
    OUString name_;
    CellPlace place_;
};

class WriterCells final : public word::Cells {
  public:
    /// The cells from the first to the last one.
    WriterCells(StoryTable table, const std::vector<RowOfCells>& rows, CellPlace first, CellPlace last)
        : table_(std::move(table)) {
        for (std::size_t row = first.row; row <= last.row; ++row) {
            for (std::size_t column = 0; column < rows[row].size(); ++column) {
                const CellPlace cell{row, column};
                if (first <= cell && cell <= last) cells_.emplace_back(rows[row][column], cell);
            }
        }
    }

    int Count() override { return static_cast<int>(cells_.size()); }
    word::CellPtr Item(int number) override {
        const auto& [name, place] = cells_[indexOf(number)];
        return std::make_shared<WriterCell>(table_, name, place);
    }

  private:
    StoryTable table_;
    std::vector<std::pair<OUString, CellPlace>> cells_;
};

class WriterRow final : public word::Row {
  public:
    WriterRow(StoryTable table, std::size_t row) : table_(std::move(table)), row_(row) {}

    word::CellsPtr Cells() override {
        return table_.content->call([&] {
            const std::vector<RowOfCells> rows = rowsOf(table_.get());
            if (row_ >= rows.size()) throw AutomationError(kObjectDeleted, "The row has been deleted.");
            return std::make_shared<WriterCells>(table_, rows, CellPlace{row_, 0},
                                                 CellPlace{row_, rows[row_].size() - 1});
        });
    }

  private:
    StoryTable table_;
    std::size_t row_;
};

/// Returns the bookmarks over the whole table.
std::vector<LiveBookmark> bookmarksOver(const StoryTable& table) {
    const TrackedRange whole = wholeTable(table.story, table.table);
    std::vector<LiveBookmark> over = table.content->finder().touching(whole);
    std::erase_if(over, [&](const LiveBookmark& bookmark) {
        return bookmark.beyond != Beyond::Table ||
               order::compareStarts(table.story, bookmark.anchor, rangeOf(whole.cursor)) != 0;
    });
    return over;
}

class WriterRows final : public word::Rows {
  public:
    explicit WriterRows(StoryTable table) : table_(std::move(table)) {}

    int Count() override {
        return table_.content->call([&] { return static_cast<int>(table_.get()->getRows()->getCount()); });
    }
    word::RowPtr Item(int number) override { return std::make_shared<WriterRow>(table_, indexOf(number)); }
    word::RowPtr Add() override {
        table_.content->call([&] { append(); });
        return Item(Count());
    }

  private:
    void append() {
        table_.content->checkMayEdit();
        const std::vector<LiveBookmark> over = bookmarksOver(table_);
        const auto rows = table_.get()->getRows();
        rows->insertByIndex(rows->getCount(), 1);
        for (const LiveBookmark& bookmark : over)
            table_.content->finder().put(bookmark.name, wholeTable(table_.story, table_.table));
    }

    StoryTable table_;
};

}  // namespace

const TableReference& StoryTable::get() const {
    try {
        if (table->getAnchor().is()) return table;
    } catch (const css::uno::RuntimeException&) {
        // The error below says it.
    }
    throw AutomationError(kObjectDeleted, "The table has been deleted.");
}

word::RowsPtr makeRows(const StoryTable& table) {
    return std::make_shared<WriterRows>(table);
}

word::CellsPtr cellsOf(const std::shared_ptr<WriterContent>& content, const TrackedRange& range) {
    return content->call([&] {
        const TableReference table = tableAround(range);
        if (!table.is()) throw AutomationError(kMemberNotFound, "The range is not in a table.");
        const std::vector<RowOfCells> rows = rowsOf(table);
        return std::make_shared<WriterCells>(StoryTable{content, range.story, table}, rows,
                                             cellOf(table, rows, range.story, range.cursor->getStart()),
                                             cellOf(table, rows, range.story, range.cursor->getEnd()));
    });
}

}  // namespace mergeloom::libreoffice
