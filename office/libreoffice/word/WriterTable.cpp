#include "office/libreoffice/word/WriterTable.h"

#include "office/libreoffice/session/UnoText.h"
#include "office/libreoffice/word/TextEditor.h"
#include "office/libreoffice/word/WriterCount.h"
#include "office/libreoffice/word/WriterRange.h"
#include "office/libreoffice/word/WriterRows.h"

#include <algorithm>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/text/XTextTable.hpp>

namespace mergeloom::libreoffice {

namespace {

bool spansRows(const Reference<css::text::XTextTable>& table, const MappedCell& cell) {
    const Reference<css::beans::XPropertySet> properties(table->getCellByName(toUno(cell.name)), UNO_QUERY);
    sal_Int32 span = 1;
    if (properties.is()) properties->getPropertyValue("RowSpan") >>= span;
    return span != 1;
}

}  // namespace

word::RangePtr WriterTable::Range() {
    const MappedTable& table = place_.get();
    return makeRange(place_.content, *place_.story, {table.start, table.end()});
}

word::RowsPtr WriterTable::Rows() {
    static_cast<void>(place_.get());
    return std::make_shared<WriterRows>(place_);
}

word::ColumnsPtr WriterTable::Columns() {
    std::size_t most = 0;
    for (const MappedRow& row : place_.get().rows)
        most = std::max(most, row.size());
    return std::make_shared<WriterCount<word::Columns>>(static_cast<int>(most));
}

bool WriterTable::Uniform() {
    const MappedTable& table = place_.get();
    const std::size_t columns = table.rows.front().size();
    if (!std::ranges::all_of(table.rows, [&](const MappedRow& row) { return row.size() == columns; }))
        return false;
    return place_.content->call([&] {
        const Reference<css::text::XTextTable> writerTable = place_.story->writerTable(table);
        return std::ranges::none_of(table.rows, [&](const MappedRow& row) {
            return std::ranges::any_of(row,
                                       [&](const MappedCell& cell) { return spansRows(writerTable, cell); });
        });
    });
}

void WriterTable::Select() {
    Range()->Select();
}

void WriterTable::Delete() {
    static_cast<void>(place_.get());
    place_.content->call([&] {
        TextEditor(*place_.content).removeTable(*place_.story, place_.table);
        place_.content->settle();
    });
}

}  // namespace mergeloom::libreoffice
