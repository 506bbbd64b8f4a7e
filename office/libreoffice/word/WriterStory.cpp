#include "office/libreoffice/word/WriterStory.h"

#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/text/XTextTable.hpp>

namespace mergeloom::libreoffice {

const TextReference& WriterStory::textOf(const TextKey& key) {
    if (!key.table) return text_;
    const std::string& cell = key.table->at(key.cell).name;
    TextReference& text = cells_[{key.table->name, cell}];
    if (!text.is()) text.set(writerTable(*key.table)->getCellByName(toUno(cell)), UNO_QUERY_THROW);
    return text;
}

Reference<css::text::XTextTable> WriterStory::writerTable(const MappedTable& table) const {
    return {tables_->getTextTables()->getByName(toUno(table.name)), UNO_QUERY_THROW};
}

}  // namespace mergeloom::libreoffice
