#include "office/libreoffice/word/WriterTable.h"

#include "office/libreoffice/word/TextEditor.h"
#include "office/libreoffice/word/WriterCount.h"
#include "office/libreoffice/word/WriterRange.h"
#include "office/libreoffice/word/WriterRows.h"

#include <algorithm>

namespace mergeloom::libreoffice {

word::RangePtr WriterTable::Range() {
    return table_.content->call(
        [&] { return makeRange(table_.content, wholeTable(table_.story, table_.get())); });
}

word::RowsPtr WriterTable::Rows() {
    table_.content->call([&] { (void)table_.get(); });
    return std::make_shared<WriterRows>(table_);
}

word::ColumnsPtr WriterTable::Columns() {
    return table_.content->call([&] {
        std::size_t most = 0;
        for (const RowOfCells& row : rowsOf(table_.get()))
            most = std::max(most, row.size());
        return std::make_shared<WriterCount<word::Columns>>(static_cast<int>(most));
    });
}

bool WriterTable::Uniform() {
    return table_.content->call([&] { return isUniform(table_.get()); });
}

void WriterTable::Select() {
    table_.content->call([&] { table_.content->select(wholeTable(table_.story, table_.get())); });
}

void WriterTable::Delete() {
    table_.content->call([&] { TextEditor(*table_.content).removeTable(table_.story, table_.get()); });
}

}  // namespace mergeloom::libreoffice
