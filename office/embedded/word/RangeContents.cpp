#include "office/embedded/word/RangeContents.h"

#include "base/AutomationError.h"

namespace mergeloom::embedded {

std::vector<FoundTable> RangeContents::tables() const {
    if (const pugi::xml_node common = commonTable()) return {{common, first()}};
    std::vector<FoundTable> found;
    pugi::xml_node table;
    for (Item* item = first(); item; item = ItemTree::next(item)) {
        if (item->takesPlace() && story_.positionOf(item) >= end_) break;
        const pugi::xml_node around = outermostTable(item);
        if (around && around != table) found.push_back({around, item});
        table = around;
    }
    return found;
}

std::vector<pugi::xml_node> RangeContents::cells() const {
    const pugi::xml_node table = commonTable();
    if (!table) throw AutomationError(kMemberNotFound, "The range is not in a table.");
    std::vector<pugi::xml_node> found;
    const Item* end = last();
    for (const Item* item = first();; item = ItemTree::next(item)) {
        pugi::xml_node around = story_.cellOf(item);
        while (around && story_.names().ancestor(around, opc::WordTag::Table) != table) {
            around = story_.names().ancestor(around, opc::WordTag::CellElement);
        }
        if (around && (found.empty() || around != found.back())) found.push_back(around);
        if (item == end) return found;
    }
}

int RangeContents::countOf(ItemKind kind) const {
    if (start_ == end_) return 0;
    int count = 0;
    for (const Item* item = story_.firstItemAt(start_); item; item = ItemTree::next(item)) {
        if (story_.positionOf(item) >= end_) break;
        if (item->kind == kind) ++count;
    }
    return count;
}

Item* RangeContents::first() const {
    Item* item = story_.items().itemAt(start_);
    return item ? item : story_.items().last();
}

const Item* RangeContents::last() const {
    return start_ == end_ ? first() : story_.items().itemAt(end_ - CharacterCount{1});
}

pugi::xml_node RangeContents::commonTable() const {
    const Item* start = first();
    const Item* end = last();
    if (!start || !end) return {};
    pugi::xml_node table = story_.tableOf(start);
    while (table && !isInside(end->node, table))
        table = story_.names().ancestor(table, opc::WordTag::Table);
    return table && isInside(table, story_.root()) ? table : pugi::xml_node();
}

pugi::xml_node RangeContents::outermostTable(const Item* item) const {
    pugi::xml_node found;
    for (pugi::xml_node node = item->node; node && node != story_.root(); node = node.parent()) {
        if (story_.names().tagOf(node) == opc::WordTag::Table) found = node;
    }
    return found;
}

}  // namespace mergeloom::embedded
