#include "office/libreoffice/word/WriterRows.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/StoryOrder.h"

#include <memory>
#include <vector>

namespace mergeloom::libreoffice {

namespace {

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

/// The bookmarks over the whole table.
std::vector<LiveBookmark> bookmarksOver(const StoryTable& table) {
    const TrackedRange whole = wholeTable(table.story, table.table);
    std::vector<LiveBookmark> over = table.content->finder().touching(whole);
    std::erase_if(over, [&](const LiveBookmark& bookmark) {
        return bookmark.beyond != Beyond::Table ||
               order::compareStarts(table.story, bookmark.anchor, rangeOf(whole.cursor)) != 0;
    });
    return over;
}

}  // namespace

int WriterRows::Count() {
    return table_.content->call([&] { return static_cast<int>(table_.get()->getRows()->getCount()); });
}

word::RowPtr WriterRows::Item(int number) {
    if (number < 1 || number > Count()) throw AutomationError(kMemberNotFound, "There is no such row.");
    return std::make_shared<WriterRow>(table_, static_cast<std::size_t>(number) - 1);
}

word::RowPtr WriterRows::Add() {
    table_.content->call([&] {
        table_.content->checkMayEdit();
        const std::vector<LiveBookmark> over = bookmarksOver(table_);
        const auto rows = table_.get()->getRows();
        rows->insertByIndex(rows->getCount(), 1);
        for (const LiveBookmark& bookmark : over)
            table_.content->finder().put(bookmark.name, wholeTable(table_.story, table_.table));
    });
    return Item(Count());
}

}  // namespace mergeloom::libreoffice
