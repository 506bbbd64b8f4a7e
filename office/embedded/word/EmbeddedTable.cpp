#include "office/embedded/word/EmbeddedTable.h"

#include "base/AutomationError.h"
#include "office/embedded/text/TableElements.h"
#include "office/embedded/word/EmbeddedRange.h"
#include "office/embedded/word/EmbeddedRows.h"

namespace mergeloom::embedded {

word::RowsPtr EmbeddedTable::Rows() {
    static_cast<void>(element());
    return std::make_shared<EmbeddedRows>(shared_from_this());
}

word::ColumnsPtr EmbeddedTable::Columns() {
    return std::make_shared<model::FixedCount<word::Columns>>(columnCountOf(element(), names()));
}

bool EmbeddedTable::Uniform() {
    return isUniform(element(), names());
}

void EmbeddedTable::Select() {
    Range()->Select();
}

void EmbeddedTable::Delete() {
    const CharacterRange whole = charactersOf(element());
    place_.content->replace(*place_.story, whole.start, whole.end, "");
}

pugi::xml_node EmbeddedTable::element() const {
    if (!rowMark_->isPlaced()) throw AutomationError(kObjectDeleted, "The table has been deleted.");
    return table_;
}

word::RangePtr EmbeddedTable::rangeOf(pugi::xml_node part) const {
    const CharacterRange found = charactersOf(part);
    return std::make_shared<EmbeddedRange>(place_.content, *place_.story, found.start, found.end);
}

void EmbeddedTable::appendRow() {
    const CharacterRange whole = charactersOf(element());
    place_.content->beginEdit(*place_.story, whole.end - CharacterCount{1}, whole.end);
    place_.editable().tables().appendRow(table_, rowMark_);
}

CharacterRange EmbeddedTable::charactersOf(pugi::xml_node part) const {
    static_cast<void>(element());
    if (part == table_) return characterRangeOf(*place_.story, table_, rowMark_);
    const Item* item = place_.story->items().itemAt(characterRangeOf(*place_.story, table_, rowMark_).start);
    while (!isInside(item->node, part))
        item = ItemTree::next(item);
    return characterRangeOf(*place_.story, part, item);
}

std::shared_ptr<EmbeddedTable> makeTable(const StoryPlace& place, pugi::xml_node table, Item* inside) {
    const pugi::xml_node lastRow = rowsOf(table, place.story->names()).back();
    while (inside->kind != ItemKind::RowMark || inside->node != lastRow)
        inside = ItemTree::next(inside);
    return std::make_shared<EmbeddedTable>(place, table, inside);
}

}  // namespace mergeloom::embedded
