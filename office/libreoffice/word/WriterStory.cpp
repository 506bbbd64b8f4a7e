#include "office/libreoffice/word/WriterStory.h"

#include "base/AutomationError.h"
#include "office/libreoffice/session/UnoText.h"

#include <com/sun/star/text/XTextTable.hpp>

namespace mergeloom::libreoffice {

void WriterStory::renew(TextSource source) {
    source_ = std::move(source);
    text_.clear();
    cells_.clear();
}

const TextReference& WriterStory::textOf(const TextKey& key) {
    if (!key.table) {
        if (!text_.is()) text_ = source_();
        if (text_.is()) return text_;
        throw AutomationError(kNotAvailable,
                              "LibreOffice does not give access to the text of " + name_ + ".");
    }
    const std::string& cell = key.table->at(key.cell).name;
    TextReference& text = cells_[{key.table->name, cell}];
    if (!text.is()) text.set(writerTable(*key.table)->getCellByName(toUno(cell)), UNO_QUERY_THROW);
    return text;
}

NeedleText WriterStory::needleText(const TextKey& key) {
    NeedleText text{textOf(key), map_.stepsBehindTables(key)};
    // In the body a cursor that is sent to the start goes behind a table that stands there.
    const bool isSafe = !key.table && isBody();
    text.beginsWithTable = !isSafe && !text.behindTables.empty() && text.behindTables.front() == 0;
    return text;
}

Reference<css::text::XTextTable> WriterStory::writerTable(const MappedTable& table) const {
    return {tables_->getTextTables()->getByName(toUno(table.name)), UNO_QUERY_THROW};
}

}  // namespace mergeloom::libreoffice
