#include "office/embedded/text/RangeContents.h"

#include "base/AutomationError.h"

#include <optional>
#include <utility>

namespace mergeloom::embedded {

namespace {

/// Follows the fields that begin and end along a story.
class FieldScan {
  public:
    explicit FieldScan(const opc::WordNames& names) : names_(names) {}

    [[nodiscard]] bool hasOpen() const { return !open_.empty(); }

    void take(Item* item) {
        if (item->kind == ItemKind::FieldBegin) return begin(item);
        if (open_.empty()) return;
        if (item->kind == ItemKind::FieldSeparator) {
            fields_[open_.back()].separator = item;
        } else if (item->kind == ItemKind::FieldEnd) {
            fields_[open_.back()].end = item;
            open_.pop_back();
        }
    }

    /// Returns the fields, also those that never ended.
    std::vector<FieldItems> result() {
        for (std::size_t field = 0; field < fields_.size(); ++field)
            fields_[field].isInCode = isInCode(places_[field]);
        return std::move(fields_);
    }

  private:
    /// The place at which a field begins: in the code or the result of the innermost field that is open
    /// there.
    struct Place {
        std::optional<std::size_t> outer;
        bool codeRuns = false;
    };

    void begin(Item* item) {
        Place place;
        if (!open_.empty()) place = {open_.back(), codeRuns(fields_[open_.back()])};
        places_.push_back(place);
        open_.push_back(fields_.size());
        fields_.push_back({item});
    }

    /// Returns true if the code of the field has not ended; that of w:fldSimple is an attribute.
    [[nodiscard]] bool codeRuns(const FieldItems& field) const {
        return !field.separator && names_.tagOf(field.begin->node) != opc::WordTag::SimpleField;
    }

    /// Returns true if the place is in the code of a field. The outer field is known by then; one that never
    /// ended is none, but there may be others around it.
    [[nodiscard]] bool isInCode(const Place& place) const {
        if (!place.outer) return false;
        const FieldItems& outer = fields_[*place.outer];
        return outer.isInCode || (place.codeRuns && outer.end);
    }

    const opc::WordNames& names_;
    std::vector<FieldItems> fields_;
    std::vector<Place> places_;  ///< of the fields
    std::vector<std::size_t> open_;
};

}  // namespace

std::vector<FoundTable> RangeContents::tables() const {
    if (!story_.hasTables()) return {};
    if (const pugi::xml_node common = commonTable()) return {{common, first()}};
    std::vector<FoundTable> found;
    pugi::xml_node table;
    for (Item* item = first(); item; item = ItemTree::next(item)) {
        if (item->takesPlace() && story_.positionOf(item) >= end_) break;
        const pugi::xml_node around = story_.outermostTableOf(item);
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

std::vector<FieldItems> RangeContents::fields() const {
    if (start_ == end_) return {};
    FieldScan scan(story_.names());
    for (Item* item = story_.firstItemAt(start_); item; item = ItemTree::next(item)) {
        const bool isAfterRange = item->takesPlace() && story_.positionOf(item) >= end_;
        if (isAfterRange && !scan.hasOpen()) break;
        scan.take(item);
    }
    std::vector<FieldItems> fields = scan.result();
    std::erase_if(fields, [&](const FieldItems& field) {
        return !field.end || story_.positionOf(field.begin) < start_ ||
               story_.positionOf(field.begin) >= end_;
    });
    return fields;
}

}  // namespace mergeloom::embedded
