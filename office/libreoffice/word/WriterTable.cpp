#include "office/libreoffice/word/WriterTable.h"

#include "office/libreoffice/word/TextEditor.h"
#include "office/libreoffice/word/WriterCount.h"
#include "office/libreoffice/word/WriterRange.h"
#include "office/libreoffice/word/WriterRows.h"

#include <algorithm>

namespace mergeloom::libreoffice {

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
    return place_.get().isUniform();
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
