#include "office/embedded/word/RangeCounts.h"

#include "base/AutomationError.h"

namespace mergeloom::embedded {

int RangeCounts::tables() const {
    if (commonTable()) return 1;
    int count = 0;
    pugi::xml_node table;
    for (const Item* item = first(); item; item = ItemTree::next(item)) {
        if (item->takesPlace() && ItemTree::positionOf(item) >= end_) break;
        const pugi::xml_node around = outermostTable(item);
        if (around && around != table) ++count;
        table = around;
    }
    return count;
}

int RangeCounts::cells() const {
    const pugi::xml_node table = commonTable();
    if (!table) throw AutomationError(kMemberNotFound, "The range is not in a table.");
    int count = 0;
    pugi::xml_node cell;
    const Item* end = last();
    for (const Item* item = first();; item = ItemTree::next(item)) {
        pugi::xml_node around = story_.cellOf(item);
        while (around && story_.names().ancestor(around, WordTag::Table) != table) {
            around = story_.names().ancestor(around, WordTag::CellElement);
        }
        if (around && around != cell) ++count;
        if (around) cell = around;
        if (item == end) return count;
    }
}

int RangeCounts::countOf(ItemKind kind) const {
    if (start_ == end_) return 0;
    int count = 0;
    for (const Item* item = story_.firstItemAt(start_); item; item = ItemTree::next(item)) {
        if (ItemTree::positionOf(item) >= end_) break;
        if (item->kind == kind) ++count;
    }
    return count;
}

const Item* RangeCounts::first() const {
    const Item* item = story_.items().itemAt(start_);
    return item ? item : story_.items().last();
}

const Item* RangeCounts::last() const {
    return start_ == end_ ? first() : story_.items().itemAt(end_ - CharacterCount{1});
}

pugi::xml_node RangeCounts::commonTable() const {
    const Item* start = first();
    const Item* end = last();
    if (!start || !end) return {};
    pugi::xml_node table = story_.tableOf(start);
    while (table && !isInside(end->node, table))
        table = story_.names().ancestor(table, WordTag::Table);
    return table && isInside(table, story_.root()) ? table : pugi::xml_node();
}

pugi::xml_node RangeCounts::outermostTable(const Item* item) const {
    pugi::xml_node found;
    for (pugi::xml_node node = item->node; node && node != story_.root(); node = node.parent()) {
        if (story_.names().tagOf(node) == WordTag::Table) found = node;
    }
    return found;
}

}  // namespace mergeloom::embedded
