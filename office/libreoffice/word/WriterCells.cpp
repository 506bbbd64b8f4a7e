#include "office/libreoffice/word/WriterCells.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/WriterRange.h"

#include <com/sun/star/container/XNamed.hpp>

namespace mergeloom::libreoffice {

const TableReference& StoryTable::get() const {
    try {
        if (table->getAnchor().is()) return table;
    } catch (const css::uno::RuntimeException&) {
        // It is told below.
    }
    throw AutomationError(kObjectDeleted, "The table has been deleted.");
}

TrackedRange WriterCell::range() const {
    return {table_.story, cursorOverCell(cellText(table_.get(), name_)), Beyond::Nothing, Beyond::CellMark};
}

word::RangePtr WriterCell::Range() {
    return table_.content->call([&] { return makeRange(table_.content, range()); });
}

void WriterCell::Select() {
    table_.content->call([&] { table_.content->select(range()); });
}

WriterCells::WriterCells(StoryTable table, const std::vector<RowOfCells>& rows, CellPlace first,
                         CellPlace last)
    : table_(std::move(table)) {
    for (std::size_t row = first.row; row <= last.row; ++row) {
        for (std::size_t column = 0; column < rows[row].size(); ++column) {
            const CellPlace cell{row, column};
            if (first <= cell && cell <= last) cells_.emplace_back(rows[row][column], cell);
        }
    }
}

word::CellPtr WriterCells::Item(int number) {
    if (number < 1 || number > Count()) throw AutomationError(kMemberNotFound, "There is no such cell.");
    const auto& [name, place] = cells_[static_cast<std::size_t>(number) - 1];
    return std::make_shared<WriterCell>(table_, name, place);
}

word::CellsPtr cellsOf(const std::shared_ptr<WriterContent>& content, const TrackedRange& range) {
    return content->call([&] {
        const RangeReference start = range.cursor->getStart();
        const RangeReference end = range.cursor->getEnd();
        const TableReference table = tableAround(range);
        if (!table.is()) throw AutomationError(kMemberNotFound, "The range is not in a table.");
        const std::vector<RowOfCells> rows = rowsOf(table);
        return std::make_shared<WriterCells>(StoryTable{content, range.story, table}, rows,
                                             cellOf(table, rows, range.story, start),
                                             cellOf(table, rows, range.story, end));
    });
}

}  // namespace mergeloom::libreoffice
