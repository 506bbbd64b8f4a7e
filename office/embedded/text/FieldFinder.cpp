#include "office/embedded/text/FieldFinder.h"

namespace mergeloom::embedded {

std::vector<FieldItems> fieldsBetween(const Story& story, CharacterPosition start, CharacterPosition end) {
    std::vector<FieldItems> fields;
    std::vector<std::size_t> open;
    for (Item* item = story.firstItemAt(start); item; item = ItemTree::next(item)) {
        const bool behind = item->takesPlace() && ItemTree::positionOf(item) >= end;
        if (behind && open.empty()) break;
        if (item->kind == ItemKind::FieldBegin) {
            open.push_back(fields.size());
            fields.push_back({item});
        } else if (item->kind == ItemKind::FieldSeparator && !open.empty()) {
            fields[open.back()].separator = item;
        } else if (item->kind == ItemKind::FieldEnd && !open.empty()) {
            fields[open.back()].end = item;
            open.pop_back();
        }
    }
    std::erase_if(fields, [&](const FieldItems& field) {
        return !field.end || ItemTree::positionOf(field.begin) < start ||
               ItemTree::positionOf(field.begin) >= end;
    });
    return fields;
}

}  // namespace mergeloom::embedded
