#include "office/libreoffice/word/WriterCells.h"

#include "base/AutomationError.h"
#include "office/libreoffice/word/WriterRange.h"

namespace mergeloom::libreoffice {

MappedTable& TablePlace::get() const {
    if (!table->placed) throw AutomationError(kObjectDeleted, "The table has been deleted.");
    return *table;
}

word::RangePtr WriterCell::Range() {
    const MappedTable& table = place_.get();
    const Stretch whole{table.startOf(cell_), table.endOf(cell_) + CharacterCount{1}};
    return makeRange(place_.content, *place_.story, whole);
}

void WriterCell::Select() {
    Range()->Select();
}

word::CellPtr WriterCells::Item(int number) {
    if (number < 1 || number > Count()) throw AutomationError(kMemberNotFound, "There is no such cell.");
    return std::make_shared<WriterCell>(place_, cells_[static_cast<std::size_t>(number) - 1]);
}

word::CellsPtr cellsOf(const std::shared_ptr<WriterContent>& content, const LiveStretch& stretch) {
    const TablePtr table = stretch.story->map().tableAround({stretch.start, stretch.end});
    if (!table) throw AutomationError(kMemberNotFound, "The range is not in a table.");
    const CharacterCount last{stretch.isCaret() ? 0 : 1};
    const CellPlace from = table->cellAt(stretch.start);
    const CellPlace to = table->cellAt(stretch.end - last);
    std::vector<CellPlace> cells;
    for (std::size_t row = from.row; row <= to.row; ++row) {
        for (std::size_t column = 0; column < table->rows[row].size(); ++column) {
            const CellPlace cell{row, column};
            if (from <= cell && cell <= to) cells.push_back(cell);
        }
    }
    return std::make_shared<WriterCells>(TablePlace{content, stretch.story, table}, std::move(cells));
}

}  // namespace mergeloom::libreoffice
